# The German manual.
add_test(NAME check_spelling COMMAND ${PROJECT_SOURCE_DIR}/scripts/check-spelling)
add_test(NAME test_manual
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/scripts/test_manual.py ${PROJECT_BINARY_DIR}/docs/handbuch/handbuch)
