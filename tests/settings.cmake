# Tests of settings/.
parzello_test(test_ini_file LIBRARIES settings)
parzello_test(test_price_settings LIBRARIES settings)
parzello_test(test_bank_settings LIBRARIES settings)
parzello_test(test_settings_form LIBRARIES form_test_support)
