# The platform's libraries have Android's names, without a version: no need to warn of that.
set(CMAKE_SUPPRESS_DEVELOPER_WARNINGS 1 CACHE INTERNAL "")
