# seeddb: the library that makes a fresh database.mdb, with the text of schema.sql built in.
#
# Two places need it: data/database, which makes the delivered file, and tests/support, whose
# helpers make test databases in every configuration (also in the sanitizer build, which leaves
# data/ out). Both include this file; the guard keeps one definition.
include_guard(GLOBAL)

add_library(seeddb STATIC
    ${CMAKE_CURRENT_LIST_DIR}/SeedDatabase.cpp
    ${CMAKE_CURRENT_LIST_DIR}/SeedDatabase.h
)
target_include_directories(seeddb PUBLIC ${CMAKE_CURRENT_LIST_DIR})
target_link_libraries(seeddb PUBLIC Qt6::Core PRIVATE SQLite::SQLite3)
qt_add_resources(seeddb "database_schema"
    PREFIX "/skelda/database"
    BASE ${CMAKE_CURRENT_LIST_DIR}
    FILES ${CMAKE_CURRENT_LIST_DIR}/schema.sql
)
