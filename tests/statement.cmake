# Tests of the bills: pages, amounts, preview, printing.
parzello_test(test_page LIBRARIES statement)
parzello_test(test_contacts LIBRARIES bill_test_support)
parzello_test(test_page_layout LIBRARIES bill_test_support)
parzello_test(test_bill_amounts LIBRARIES bill_test_support)
parzello_test(test_example_bills LIBRARIES bill_test_support)
parzello_test(test_preview_paging LIBRARIES statement)
parzello_test(test_printing LIBRARIES statement)
