# Warnings, hardening and sanitizers for every target of the project, and how the tool itself is linked.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

option(ORVANE_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORVANE_FUZZ "Build the fuzz targets, with clang's libFuzzer" OFF)
option(ORVANE_HARDEN "Build with the hardening flags of a release" OFF)
option(ORVANE_STATIC "Link the tool into one static, position-independent executable, optimized as a whole" OFF)
if(ORVANE_SANITIZE AND ORVANE_STATIC)
  message(FATAL_ERROR "The sanitizers need the dynamic C library: ORVANE_SANITIZE and ORVANE_STATIC exclude each other.")
endif()

# An executable with the property ORVANE_STATIC is linked as that option says, all others dynamically.
set(is_static $<AND:$<BOOL:${ORVANE_STATIC}>,$<BOOL:$<TARGET_PROPERTY:ORVANE_STATIC>>>)
set(is_dynamic $<NOT:${is_static}>)

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
if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
  # clang sees GCC 12's library use what the library itself calls deprecated; there is nothing else of that here.
  target_compile_options(project_settings INTERFACE -Wno-deprecated-declarations)
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
    $<${is_dynamic}:-static-libstdc++> $<${is_dynamic}:-static-libgcc> LINKER:--as-needed)
endif()

if(ORVANE_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "ORVANE_FUZZ needs clang, which has libFuzzer.")
  endif()
  target_compile_options(project_settings INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(project_settings INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(ORVANE_HARDEN)
  target_compile_options(project_settings INTERFACE
    -fstack-protector-strong -fstack-clash-protection -fPIE -ffunction-sections -fdata-sections)
  target_link_options(project_settings INTERFACE
    $<${is_dynamic}:-pie> LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack LINKER:--gc-sections)

  # x86 has the one, 64-bit ARM the other.
  check_cxx_compiler_flag(-fcf-protection has_control_flow_protection)
  check_cxx_compiler_flag(-mbranch-protection=standard has_branch_protection)
  target_compile_options(project_settings INTERFACE
    $<$<BOOL:${has_control_flow_protection}>:-fcf-protection>
    $<$<BOOL:${has_branch_protection}>:-mbranch-protection=standard>)

  # A level given from outside, or built into the compiler, stands. Without optimization there is none to have.
  set(CMAKE_REQUIRED_FLAGS -O2)
  check_cxx_source_compiles("
    #ifdef _FORTIFY_SOURCE
    #error It is defined.
    #endif
    int main() {}" lacks_fortify_level)
  unset(CMAKE_REQUIRED_FLAGS)
  if(lacks_fortify_level)
    target_compile_definitions(project_settings INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
  endif()
endif()

add_library(library_settings INTERFACE)
if(ORVANE_STATIC)
  # Nothing asks for the type of an object, but every table of types is written to when a run starts.
  target_compile_options(project_settings INTERFACE -fPIE -fno-rtti)
  target_link_options(project_settings INTERFACE $<${is_static}:-static-pie> $<${is_static}:-s>)

  # The tool is optimized as a whole, which takes the linker a while. The tests are linked from
  # what the compiler made of each file: the library's objects hold both. One partition needs no
  # make program to be linked, and comes out the same whatever the number of processors.
  check_cxx_compiler_flag("-flto -ffat-lto-objects -flto-partition=one" has_link_time_optimization)
  if(has_link_time_optimization)
    target_compile_options(project_settings INTERFACE -ffat-lto-objects)
    target_compile_options(library_settings INTERFACE -flto)
    target_link_options(project_settings INTERFACE
      $<IF:${is_static},-flto,-fno-lto> $<${is_static}:-flto-partition=one>)
  endif()

  # Relative relocations in a few words; the start-up code of older C libraries can't read them.
  set(CMAKE_REQUIRED_FLAGS -fPIE)
  set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie LINKER:--fatal-warnings LINKER:-z,pack-relative-relocs)
  check_cxx_source_compiles("
    #include <features.h>
    #if !__GLIBC_PREREQ(2, 36)
    #error It is too old.
    #endif
    int main() {}" has_packed_relocations)
  unset(CMAKE_REQUIRED_FLAGS)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  if(has_packed_relocations)
    target_link_options(project_settings INTERFACE $<${is_static}:LINKER:-z,pack-relative-relocs>)
  endif()
endif()
