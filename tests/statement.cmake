# Tests of the bills: pages, amounts, preview, printing.
parzello_test(test_page LIBRARIES statement)
parzello_test(test_contacts LIBRARIES bill_test_support)
parzello_test(test_page_layout LIBRARIES bill_test_support)
parzello_test(test_annual_statement LIBRARIES bill_test_support)
parzello_test(test_bill_amounts LIBRARIES bill_test_support)
parzello_test(test_example_bills LIBRARIES bill_test_support)
add_test(NAME check_bills
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/golden/bills.py --check)
parzello_test(test_preview_paging LIBRARIES statement)
parzello_test(test_print_file LIBRARIES statement)
parzello_test(test_printing LIBRARIES statement)
parzello_test(test_page_font LIBRARIES bill_test_support printed_test_support)
set_tests_properties(test_page_font PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;FONTCONFIG_FILE=${CMAKE_CURRENT_SOURCE_DIR}/fixtures/fonts/none.conf")
parzello_test(test_page_player LIBRARIES bill_test_support printed_test_support)
parzello_test(test_statement_form LIBRARIES statement_tab_test_support)
parzello_test(test_shown_bills_form LIBRARIES form_test_support printed_test_support)
# On a fine screen the page is painted in the screen's own pixels.
add_test(NAME test_statement_form_scale_2 COMMAND test_statement_form)
set_tests_properties(test_statement_form_scale_2 PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;QT_SCALE_FACTOR=2")
parzello_test(test_statement_printer LIBRARIES statement_tab_test_support)
parzello_test(test_example_start LIBRARIES form_test_support bill_test_support)
