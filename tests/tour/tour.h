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

    // tour_members.cpp
    void the_first_start_shows_the_members();
    void a_telephone_number_is_corrected();
    void a_new_member_lacks_last_years_line();
    void last_year_gets_the_new_members_line();
    void a_member_entered_by_mistake_is_deleted();
    void the_new_members_readings_are_entered();

    // tour_bills.cpp
    void prices_and_dates_are_saved();
    void the_bank_is_changed();
    void the_bills_are_paged_through();
    void the_bills_are_printed();

    // tour_backup.cpp
    void the_data_are_saved_on_the_stick();
    void a_damaged_file_comes_back_from_the_stick();

    // tour_guard.cpp
    void a_changed_price_is_put_back_on_no();
    void a_changed_price_is_saved_on_yes();
    void a_changed_bank_is_asked_about_once();
    void closing_the_window_asks_for_what_is_unsaved();
    void the_button_to_end_asks_nothing();

    // tour_first_start.cpp
    void a_club_begins_in_an_empty_folder();

private:
    /// Starts the program on that day, as a double click on it would.
    void Start(const QDate& today);
    /// Closes the window by its frame.
    void Close();

    // What stands in a control, as the user reads it.
    QString Text(const QString& name);
    QStringList Rows(const QString& name);
    bool Shown(const QString& name);

    QString StickPath() const { return Folder.filePath(QStringLiteral("Stick")); }

    QTemporaryDir Folder;
    ClubFolder Club;
    std::unique_ptr<Program> program;
    std::unique_ptr<Robot> User;
    bool Broken = false; ///< a chapter failed; those behind it would only fail for the same reason
};
