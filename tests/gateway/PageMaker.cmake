# tests_pagemaker: the forecast page maker, its pages read by the forecast's own reader, and the
# CGI program run as a process against a stand-in source on a Unix socket, and its pages shown by
# the forecast window after a right click (hence mainwindow, for the poll fixture). Only the PageMaker*
# files of tests/gateway are its own.
file(GLOB pagemaker_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/gateway/PageMaker*.cpp
     ${PROJECT_SOURCE_DIR}/tests/gateway/PageMaker*.h)
add_executable(tests_pagemaker ${pagemaker_sources})
target_link_libraries(tests_pagemaker PRIVATE gateway forecast mainwindow testsupport GTest::gtest GTest::gtest_main Qt6::Test
                                               Qt6::Network)
target_include_directories(tests_pagemaker PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_compile_definitions(tests_pagemaker PRIVATE
    SKELDA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    SKELDA_REPLIES_DIR="${PROJECT_SOURCE_DIR}/tests/gateway/replies"
    SKELDA_FORECAST_PAGE_PROGRAM="$<TARGET_FILE:skelda-forecast-page>")
add_dependencies(tests_pagemaker skelda-forecast-page)
add_test(NAME pagemaker COMMAND tests_pagemaker)
set_tests_properties(pagemaker PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 900)
