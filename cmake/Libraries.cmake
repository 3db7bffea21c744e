# The libraries the tool stands on. They are linked statically into the tool: fewer
# shared objects to resolve is the largest single gain at start-up.
set(Boost_USE_STATIC_LIBS ON)
find_package(Boost 1.81 CONFIG REQUIRED)

find_path(RAPIDJSON_INCLUDE_DIR NAMES rapidjson/reader.h REQUIRED)
add_library(rapidjson INTERFACE IMPORTED)
target_include_directories(rapidjson INTERFACE "${RAPIDJSON_INCLUDE_DIR}")

find_library(UTF8PROC_LIBRARY NAMES libutf8proc.a REQUIRED)
find_path(UTF8PROC_INCLUDE_DIR NAMES utf8proc.h REQUIRED)
add_library(utf8proc STATIC IMPORTED)
set_target_properties(utf8proc PROPERTIES
  IMPORTED_LOCATION "${UTF8PROC_LIBRARY}"
  INTERFACE_INCLUDE_DIRECTORIES "${UTF8PROC_INCLUDE_DIR}"
  INTERFACE_COMPILE_DEFINITIONS UTF8PROC_STATIC)

find_package(Threads REQUIRED)
