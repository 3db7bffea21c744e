# A build that asks for nothing is a release build.
get_property(has_several_build_types GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(NOT has_several_build_types AND NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Debug, Release, RelWithDebInfo or MinSizeRel" FORCE)
endif()
