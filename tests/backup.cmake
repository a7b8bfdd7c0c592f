# Drives, copying to the stick and back.
parzello_test(test_drives LIBRARIES backup)
parzello_test(test_drives_sysfs LIBRARIES backup)
parzello_test(test_drives_udisks2 LIBRARIES backup_drives)
target_compile_definitions(test_drives_udisks2 PRIVATE
    PARZELLO_TEST_SUPPORT="${CMAKE_CURRENT_SOURCE_DIR}/support")
parzello_test(test_copying LIBRARIES backup)
parzello_test(test_backup_form LIBRARIES form_test_support)
parzello_test(test_stick LIBRARIES form_test_support) # an image as stick; says so where it cannot
set_tests_properties(test_stick PROPERTIES RUN_SERIAL ON)
