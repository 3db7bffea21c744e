# Warnings, hardening and sanitizers for every target of the project.
option(ORVANE_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORVANE_HARDEN "Build with the hardening flags of a release" OFF)

add_library(project_settings INTERFACE)
target_compile_options(project_settings INTERFACE
  -Werror -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wformat=2 -Wimplicit-fallthrough
  -Wextra-semi -Wunused
  # GCC 12 sees overlapping copies in its own std::string at -O3; there is nothing else for it to find here.
  -Wno-restrict)

if(ORVANE_SANITIZE)
  target_compile_options(project_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(project_settings INTERFACE -fsanitize=address,undefined)
else()
  target_link_options(project_settings INTERFACE -static-libstdc++ -static-libgcc -Wl,--as-needed)
endif()

if(ORVANE_HARDEN)
  target_compile_options(project_settings INTERFACE
    -fstack-protector-strong -fstack-clash-protection -fcf-protection -fPIE
    -ffunction-sections -fdata-sections)
  target_compile_definitions(project_settings INTERFACE _FORTIFY_SOURCE=2)
  target_link_options(project_settings INTERFACE
    -pie -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack -Wl,--gc-sections)
endif()
