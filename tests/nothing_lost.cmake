# Rewrites that survive everything, a second start, hostile files.
parzello_test(test_redo_record LIBRARIES data)
parzello_test(test_rewrite_file LIBRARIES data)
parzello_test(test_start_finishes LIBRARIES form_test_support)

add_executable(single_start_driver single_start_driver.cpp)
target_link_libraries(single_start_driver PRIVATE forms)
parzello_test(test_single_start)
target_compile_definitions(test_single_start PRIVATE
    SINGLE_START_DRIVER="$<TARGET_FILE:single_start_driver>"
    PROGRAM="$<TARGET_FILE:parzello>")
add_dependencies(test_single_start single_start_driver parzello)

add_library(crash_actions STATIC support/crash_actions.cpp support/window_actions.cpp)
target_link_libraries(crash_actions PUBLIC test_support forms Qt6::Test)
add_executable(crash_driver crash_driver.cpp)
target_link_libraries(crash_driver PRIVATE crash_actions)
parzello_test(test_refused_places LIBRARIES crash_actions)
target_compile_definitions(test_refused_places PRIVATE CRASH_DRIVER="$<TARGET_FILE:crash_driver>")
add_dependencies(test_refused_places crash_driver)
add_executable(crash_matrix crash_matrix.cpp)
target_link_libraries(crash_matrix PRIVATE crash_actions)
target_compile_definitions(crash_matrix PRIVATE CRASH_DRIVER="$<TARGET_FILE:crash_driver>")
add_dependencies(crash_matrix crash_driver)
add_test(NAME crash-matrix COMMAND crash_matrix)
set_tests_properties(crash-matrix PROPERTIES
    ENVIRONMENT "LC_ALL=C.UTF-8" PROCESSORS 2 TIMEOUT 1800)

parzello_test(test_hostile_files LIBRARIES form_test_support)
