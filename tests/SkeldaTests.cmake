# skelda_tests(<folder> <libraries...>): one test executable per folder of tests/, registered with
# CTest, always headless. The tests of the platform libraries and of the decoder also run in the
# sanitizer build, under the label "sanitize".
function(skelda_tests folder)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/${folder}/*.cpp)
    set(target tests_${folder})
    add_executable(${target} ${sources})
    target_link_libraries(${target} PRIVATE ${ARGN} GTest::gtest GTest::gtest_main Qt6::Test)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    # Where the tree's own data lies, for the tests that check what is delivered.
    target_compile_definitions(${target} PRIVATE SKELDA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    add_test(NAME ${folder} COMMAND ${target})
    set_tests_properties(${folder} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 900)
    if(folder MATCHES "^(runtime|dao|surfaces|controls|internet|decoding)$")
        set_tests_properties(${folder} PROPERTIES LABELS sanitize)
    endif()
endfunction()
