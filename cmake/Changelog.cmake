# The newest release that CHANGELOG.md tells of is the project's version.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS CHANGELOG.md newest_release REGEX "^## \\[[0-9]" LIMIT_COUNT 1)
string(FIND "${newest_release}" "## [${PROJECT_VERSION}] - " position)
if(NOT position EQUAL 0)
  message(FATAL_ERROR
    "The project's version is ${PROJECT_VERSION}, but the newest release in CHANGELOG.md is '${newest_release}'.")
endif()
