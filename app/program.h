// The whole state of the program: one plain struct per subsystem, side by side, and the controls of
// the four tabs. Forms reach each other's routines through this header; plain files never include
// it.
#pragma once

#include "app/club.h"
#include "app/load_year.h"
#include "app/main_window.h"
#include "app/start_up.h"
#include "app/tab_guard.h"
#include "app/unsaved.h"
#include "app/year_notes.h"
#include "backup/backup_form.h"
#include "cashbook/cashbook_controls.h"
#include "cashbook/ledger.h"
#include "controls/controls.h"
#include "controls/error_box.h"
#include "controls/events.h"
#include "controls/message_boxes.h"
#include "data/dates.h"
#include "data/history.h"
#include "data/line_file.h"
#include "members/member_fields_form.h"
#include "members/member_form.h"
#include "members/member_lists.h"
#include "members/member_marks_form.h"
#include "members/member_names_form.h"
#include "members/member_saving.h"
#include "members/member_tab_form.h"
#include "members/readings_form.h"
#include "outgoing/bills_as_pdf_form.h"
#include "outgoing/transfer_code_form.h"
#include "report/report_form.h"
#include "settings/bank_settings.h"
#include "settings/price_settings.h"
#include "settings/settings_form.h"
#include "settings/settings_state.h"
#include "statement/print_frame_form.h"
#include "statement/statement_form.h"
#include "statement/statement_state.h"

#include <QDate>

#include <functional>
#include <type_traits>

/// The year that is chosen and how it stands to the loaded one.
struct YearState {
    BillingYear YearText; ///< set by start-up and the year buttons
    qint16 YearNumber
        = 0; ///< the start-up year as a number; prices are carried over only into this year
    BillingYear LoadedYear; ///< the year of the lists in memory; empty before the first load
    MemberTroubles Troubles;
    QString CurrentLedgerName; ///< kept as written by the loading sequence; nothing reads it
};

struct Program {
    DataFiles Files;
    std::function<QDate()> Today = [] { return QDate::currentDate(); };
    AskRoutine Ask; ///< every message box goes through here
    ErrorBoxState Errors;

    YearState Year;
    QString ClubName;
    MemberLists Members;
    MemberState Member;
    PriceSettings Prices;
    BankSettings Bank;
    SettingsState Settings; // settings/settings_state.h
    StatementState Statement; // statement/statement_state.h
    CashBookState CashBook; // cashbook/ledger.h
    BillsAsPdfSeams BillsAsPdf; // outgoing/bills_as_pdf_form.h
    TransferCodeChoice TransferCode; // outgoing/transfer_code_form.h
    ReportWindows Reports; // report/report_form.h

    MainWindowForm Window;
    YearForm YearRow; // tab "Stammdaten", as the next two
    MemberForm MembersTab;
    MemberNamesForm NameLists;
    ReadingsForm Readings; // its own window
    ::YearNotes YearNotes; // on every tab
    StatementForm StatementPreview; // tab "Druckvorlagen"
    PrintFrameForm PrintFrame; // the frame "Drucken" on the tab "Druckvorlagen"
    CashBookForm CashBookTab; // tab "Kontoführung"
    SettingsForm SettingsTab; // tab "Einstellungen"
    BackupForm Backup; // the frame "Datensicherung" on the tab "Einstellungen"
};

/// Connects a control's signal to a handler inside WithErrorBox. The handler takes the program, and
/// all of the signal's arguments if it wants them.
template <typename Sender, typename Object, typename... Arguments, typename Handler>
void On(Program& program, Sender* sender, void (Object::*signal)(Arguments...), Handler handler)
{
    constexpr bool takes_arguments = std::is_invocable_v<Handler, Program&, Arguments...>;
    static_assert(takes_arguments || std::is_invocable_v<Handler, Program&>,
        "the handler's parameters do not fit the signal: it would never run");
    QObject::connect(sender, signal, sender, [&program, handler](Arguments... arguments) {
        const SavingAction action(program.Files); // what it saves belongs together
        WithErrorBox(program.Errors, program.Ask, [&] {
            if constexpr (takes_arguments)
                handler(program, arguments...);
            else
                handler(program);
        });
    });
}

/// Runs a handler inside WithErrorBox for an event of the watched control. The handler answers true
/// to swallow the event.
template <typename Handler>
void OnEvent(Program& program, QObject* watched, QEvent::Type type, Handler handler)
{
    HookEvent(watched, type, [&program, handler](QEvent& event) {
        const SavingAction action(program.Files);
        bool swallowed = false;
        WithErrorBox(program.Errors, program.Ask, [&] { swallowed = handler(program, event); });
        return swallowed;
    });
}

/// One step of a sequence: what goes wrong in it is shown, and the next step runs all the same.
template <typename Routine> void RunStep(Program& program, Routine routine)
{
    WithErrorBox(program.Errors, program.Ask, [&] { routine(program); });
}
