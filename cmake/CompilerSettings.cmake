# Warnings, hardening and sanitizers for every target of the project, and how the tool itself is linked.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

option(ORVANE_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORVANE_HARDEN "Build with the hardening flags of a release" OFF)

add_library(project_settings INTERFACE)
target_compile_options(project_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wcast-align -Wformat=2 -Wimplicit-fallthrough
  -Wextra-semi -Wunused)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in its own std::string, and strings read before they are
  # made in its own std::variant; there is nothing else for either warning to find here.
  target_compile_options(project_settings INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
if(CMAKE_COMPILE_WARNING_AS_ERROR)
  target_link_options(project_settings INTERFACE LINKER:--fatal-warnings)
endif()

if(ORVANE_SANITIZE)
  target_compile_options(project_settings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(project_settings INTERFACE -fsanitize=address,undefined)
else()
  target_link_options(project_settings INTERFACE
    -static-libstdc++ -static-libgcc LINKER:--as-needed)
endif()

if(ORVANE_HARDEN)
  target_compile_options(project_settings INTERFACE
    -fstack-protector-strong -fstack-clash-protection -fPIE -ffunction-sections -fdata-sections)
  target_link_options(project_settings INTERFACE
    -pie LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack LINKER:--gc-sections)

  # x86 alone has it.
  check_cxx_compiler_flag(-fcf-protection has_control_flow_protection)
  if(has_control_flow_protection)
    target_compile_options(project_settings INTERFACE -fcf-protection)
  endif()

  # A level given from outside, or built into the compiler, stands.
  set(CMAKE_REQUIRED_FLAGS -O2)
  check_cxx_source_compiles("
    #ifdef _FORTIFY_SOURCE
    #error It is defined.
    #endif
    int main() {}" lacks_fortify_level)
  unset(CMAKE_REQUIRED_FLAGS)
  if(lacks_fortify_level)
    target_compile_definitions(project_settings INTERFACE _FORTIFY_SOURCE=2)
  endif()
endif()
