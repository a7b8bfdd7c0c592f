# The cash book.
parzello_test(test_ledger LIBRARIES cashbook)
parzello_test(test_ledger_file LIBRARIES cashbook)
parzello_test(test_ledger_rows LIBRARIES cashbook)
parzello_test(test_date_ordering LIBRARIES cashbook)
parzello_test(test_booking_entry LIBRARIES cashbook)
parzello_test(test_member_marks LIBRARIES cashbook)
