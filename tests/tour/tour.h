// A club's year in the real window: mouse and keys alone, real message boxes and dialogs, on the
// example club with fixed dates. Leaves a picture of every tab and the printed bills in out/. The
// chapters build on each other and run in the order in which they stand here; after each of them
// every file of the club is compared byte for byte with what the chapter says it changed.
#pragma once

#include "app/program.h"
#include "tests/tour/club_folder.h"
#include "tests/tour/robot.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>

/// Path of a file in the folder that the tour leaves behind.
QString OutPath(const QString& name);

class Tour : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    // tour_members.cpp; what "Mehr" leads to in between, and below, is tour_more.cpp
    void the_first_start_shows_the_members();
    void the_check_report_finds_what_was_planted();
    void the_reports_link_leads_to_the_booking_to_correct();
    void a_telephone_number_is_corrected();
    void a_new_member_lacks_last_years_line();
    void both_years_lists_stand_side_by_side();
    void last_year_gets_the_new_members_line();
    void a_member_entered_by_mistake_is_deleted();
    void the_new_members_readings_are_entered();
    void an_exchanged_meter_is_reckoned_in();

    // tour_bills.cpp
    void prices_and_dates_are_saved();
    void the_bank_is_changed();
    void the_bills_are_paged_through();
    void the_bills_are_printed();
    void each_member_gets_a_file();
    void a_code_to_pay_by_stands_on_the_page();

    // tour_cashbook.cpp
    void the_bank_account_shows_the_years_bookings();
    void every_members_payment_is_booked();
    void a_wrong_amount_is_corrected();
    void a_wrong_booking_is_deleted();
    void the_cash_box_has_its_own_bookings();
    void leaving_the_tab_saves_both_accounts_on_yes();

    // tour_money.cpp
    void the_open_items_name_who_still_has_to_pay();
    void the_cash_report_is_made_for_the_auditors();
    void the_cash_book_lists_every_booking();
    void the_years_stand_side_by_side();
    void the_history_tells_what_was_done();

    // tour_backup.cpp
    void the_data_are_saved_on_the_stick();
    void a_damaged_file_comes_back_from_the_stick();

    // tour_guard.cpp
    void a_changed_price_is_put_back_on_no();
    void a_changed_price_is_saved_on_yes();
    void a_changed_bank_is_asked_about_once();
    void closing_the_window_asks_for_what_is_unsaved();
    void the_button_to_end_asks_nothing();

    // tour_new_year.cpp
    void a_new_year_carries_everything_over();
    void the_next_readings_are_typed_into_one_table();
    void the_bank_is_booked_for_a_whole_year();
    void the_cash_box_is_carried_over_when_it_is_shown();
    void the_old_year_can_still_be_seen();

    // tour_first_start.cpp
    void a_club_begins_in_an_empty_folder();
    void its_prices_and_its_bank_are_typed();
    void its_first_member_gets_a_bill();
    void its_first_booking_opens_the_account();

private:
    /// Starts the program on that day, as a double click on it would; the boxes come before the
    /// window does.
    void Start(const QDate& today, const QList<ExpectedBox>& boxes = {});
    /// Closes the window by its frame.
    void Close();

    // What stands in a control, as the user reads it.
    QString Text(const QString& name);
    QStringList Rows(const QString& name);
    QStringList SelectedRows(const QString& name);
    bool Shown(const QString& name);
    /// Types a booking into the entry fields, key by key as the treasurer does it, "OK" included.
    void Book(const QString& date, const QString& text, const QString& deposit,
        const QString& withdrawal);

    /// Opens the menu of "Mehr" and clicks the entry of that object name.
    void PickMore(const QString& entry);

    /// Opens a report by "Mehr" and the underlined letter of its entry.
    OpenedReport& OpenByMore(Qt::Key letter, const QString& kind);

    QString StickPath() const { return Folder.filePath(QStringLiteral("Stick")); }

    QTemporaryDir Folder;
    ClubFolder Club;
    std::unique_ptr<Program> program;
    std::unique_ptr<Robot> User;
    bool Broken = false; ///< a chapter failed; those behind it would only fail for the same reason
};
