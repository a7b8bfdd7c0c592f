// A seeded random user over the whole window: keys, clicks, tab switches, years, answers to boxes.
// After every step the promises that hold at any moment are checked. Steps and seed: arguments 1
// and 2 (defaults below); with "redraw" as argument 3 what is shown is compared with a full redraw.
#include "tests/whole_program/monkey.h"
#include "app/german.h"
#include "cashbook/date_ordering.h"
#include "controls/fields.h"
#include "data/ansi_text.h"
#include "data/dates.h"
#include "data/file_names.h"
#include "data/german_numbers.h"
#include "tests/support/full_redraw.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QUrl>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

constexpr int default_steps = 2000;
constexpr quint32 default_seed = 20171120;

[[noreturn]] void Fail(const Monkey& monkey, const QString& what)
{
    std::fprintf(stderr, "monkey: step %d, after %s: %s\n", monkey.Step,
        qPrintable(monkey.LastAction), qPrintable(what));
    std::fprintf(stderr, "boxes: %s\n",
        qPrintable(monkey.Club.BoxTexts()
                       .mid(qMax<qsizetype>(0, monkey.Club.Boxes.size() - 5))
                       .join(QLatin1Char('\n'))));
    std::exit(1);
}

/// One of the controls that the tab in front shows.
template <typename Control> Control* AnyVisible(Monkey& monkey, const QList<Control*>& controls)
{
    QList<Control*> visible;
    for (Control* control : controls) {
        if (control->isVisibleTo(monkey.Club.Window()))
            visible += control;
    }
    return visible.isEmpty() ? nullptr : visible[Below(monkey, visible.size())];
}

void TypeSomething(Monkey& monkey)
{
    QLineEdit* field = AnyVisible(monkey, monkey.Fields);
    if (field == nullptr || field->isReadOnly())
        return;
    monkey.LastAction = QStringLiteral("typing into ") + field->objectName();
    if (Below(monkey, 2) == 0)
        QTest::mouseClick(field, Qt::LeftButton);
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    TypeKeys(field, AnyText(monkey));
    if (Below(monkey, 6) == 0)
        QTest::keyClick(field, Qt::Key_Return);
}

void PressSomething(Monkey& monkey)
{
    QPushButton* button = AnyVisible(monkey, monkey.Buttons);
    if (button == nullptr)
        return;
    monkey.LastAction = QStringLiteral("pressing ") + button->objectName();
    QTest::mouseClick(button, Qt::LeftButton);
}

void PickSomething(Monkey& monkey)
{
    QAbstractItemView* list = AnyVisible(monkey, monkey.Lists);
    const int rows = list == nullptr ? 0 : list->model()->rowCount();
    if (rows == 0)
        return;
    monkey.LastAction = QStringLiteral("picking in ") + list->objectName();
    const QModelIndex index = list->model()->index(Below(monkey, rows), 0);
    list->scrollTo(index);
    if (Below(monkey, 4) == 0)
        QTest::keyClick(list, Below(monkey, 2) == 0 ? Qt::Key_Down : Qt::Key_Up);
    else
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
}

void PickADay(Monkey& monkey)
{
    QCalendarWidget* calendar = monkey.Calendars[Below(monkey, monkey.Calendars.size())];
    monkey.LastAction = QStringLiteral("a day of ") + calendar->objectName();
    const QDate day = QDate(2017, 1, 1).addDays(Below(monkey, 365));
    calendar->setSelectedDate(day);
    Q_EMIT calendar->clicked(day);
}

void ToggleSomething(Monkey& monkey)
{
    QWidget* toggle = monkey.Toggles[Below(monkey, monkey.Toggles.size())];
    monkey.LastAction = QStringLiteral("toggling ") + toggle->objectName();
    QTest::keyClick(toggle, Qt::Key_Space);
}

void ChangeTheTab(Monkey& monkey)
{
    monkey.LastAction = QStringLiteral("changing the tab");
    monkey.Club.program.Window.SSTab1->setCurrentIndex(Below(monkey, 4));
}

void ScrollThePreview(Monkey& monkey)
{
    monkey.LastAction = QStringLiteral("scrolling");
    QScrollBar* bar = monkey.Club.program.StatementPreview.VScroll1;
    bar->setValue(Below(monkey, bar->maximum() + 1));
}

/// Hands other than the program's: lines added to a file, last year's file taken away or given
/// back.
void MeddleWithFiles(Monkey& monkey)
{
    monkey.LastAction = QStringLiteral("meddling with files");
    static const QByteArray lines[] = { "kurz;zeile\r\n", "a;b;c;d;e;f;g;h;i;j;k;l;m;n;o;p;q\r\n",
        "Meier;Uwe;W 1;0 O/T;1;1;300;2;0,00;x;0,00;0,00;1;2;3;4\r\n", "\r\n", "ohne Zeilenende" };
    const QString year = Below(monkey, 2) == 0 ? QStringLiteral("2016") : QStringLiteral("2017");
    const QString name = QStringLiteral("Mitgliedsdaten") + year + QStringLiteral(".pz");
    TestClub& club = monkey.Club;
    switch (Below(monkey, 3)) {
    case 0:
        club.Write(name, club.Read(name) + lines[Below(monkey, 5)]);
        break;
    case 1:
        if (year == QStringLiteral("2016"))
            QFile::remove(club.Path(name));
        break;
    default:
        club.CopyExample(QStringLiteral("ordinary-year"));
        break;
    }
    monkey.ErrorSinceLoad = true; // the lists are older than the files until the next load
    LookAtFiles(monkey.Kept, club.program.Files);
}

/// Files as a full disk, another system or a stranger's program leaves them.
void DamageAFile(Monkey& monkey)
{
    monkey.LastAction = QStringLiteral("damaging a file");
    TestClub& club = monkey.Club;
    const QString year = Below(monkey, 2) == 0 ? QStringLiteral("2016") : QStringLiteral("2017");
    const QStringList kinds { QStringLiteral("Mitgliedsdaten"), QStringLiteral("Konto"),
        QStringLiteral("HandKasse") };
    const QString name = kinds[Below(monkey, kinds.size())] + year + QStringLiteral(".pz");
    if (!club.Exists(name))
        return;
    switch (Below(monkey, 3)) {
    case 0:
        club.Write(name, club.Read(name) + QByteArray(40000, 'x') + "\r\n");
        break;
    case 1:
        club.Write(name, club.Read(name).replace('\r', "")); // LF alone
        break;
    default:
        club.Write(name, club.Read(name).replace("0,00\r\n", "0,00\n")); // some LF alone
    }
    monkey.ErrorSinceLoad = true;
    LookAtFiles(monkey.Kept, club.program.Files);
}

void StepTheYear(Monkey& monkey)
{
    monkey.LastAction = QStringLiteral("stepping the year");
    const char* button = Below(monkey, 2) == 0 ? "Command3(0)" : "Command3(1)";
    QTest::mouseClick(monkey.Club.Control<QPushButton>(button), Qt::LeftButton);
}

/// The program ends and starts again; sometimes it is a new year whose old one has a damaged line.
void StartAnew(Monkey& monkey)
{
    TestClub& club = monkey.Club;
    Program& program = club.program;
    if (Below(monkey, 2) == 0) {
        QFile::remove(club.Path(QStringLiteral("Mitgliedsdaten2017.pz")));
        club.Write(QStringLiteral("Mitgliedsdaten2016.pz"),
            club.Read(QStringLiteral("Mitgliedsdaten2016.pz")) + "kurz;zeile\r\n");
    }
    LookAtFiles(monkey.Kept, program.Files);
    program.Year = {};
    program.Members = {};
    StartUp(program);
    monkey.LastAction = QStringLiteral("starting anew with Command4");
    monkey.ErrorSinceLoad = true;
}

/// The club's own files again, the present year, "Laden": from here on lists and files are alike.
void StartAfresh(Monkey& monkey)
{
    TestClub& club = monkey.Club;
    club.CopyExample(QStringLiteral("ordinary-year"));
    LookAtFiles(monkey.Kept, club.program.Files);
    for (int i = 0; i < 50 && club.program.Year.YearText != QStringLiteral("2017"); ++i)
        QTest::mouseClick(club.Control<QPushButton>("Command3(0)"), Qt::LeftButton);
    club.Boxes.clear();
    monkey.ErrorSinceLoad = false;
    QTest::mouseClick(club.Control<QPushButton>("Command4"), Qt::LeftButton);
    monkey.LastAction = QStringLiteral("starting afresh with Command4");
}

QString BalanceOf(const QStringList& lines)
{
    float balance = 0.0F;
    for (const QString& line : lines) {
        const QStringList fields = SplitRecord(line);
        const auto amount = [&fields](int field) {
            const ParsedSingle parsed = ParseSingle(FieldOrEmpty(fields, field));
            return parsed.outcome == NumberOutcome::Ok ? parsed.value : 0.0F;
        };
        balance = amount(Deposit) + balance;
        balance = balance - amount(Withdrawal);
    }
    return FormatNumber(balance, QStringLiteral("0.00 €"));
}

bool FileHolds(const Monkey& monkey, const QString& name, const QStringList& lines)
{
    if (!FileExists(monkey.Club.program.Files, name))
        return lines.isEmpty();
    const QByteArray bytes = ReadBytes(monkey.Club.program.Files, name);
    return bytes == BytesOfLines(lines)
        || (!bytes.contains('\r') && ReadLines(monkey.Club.program.Files, name) == lines);
}

/// What a step found: the members files and ledgers, and how the years stood.
struct Before {
    QMap<QString, QByteArray> MembersFiles; ///< by year; a null array: no file
    QMap<QString, QByteArray> Ledgers; ///< by name, those that are there
    QStringList Records;
    YearState Year;
    bool YearNoteShown = false;
};

Before Remember(const Monkey& monkey)
{
    const TestClub& club = monkey.Club;
    Before before;
    for (const char* year : { "2015", "2016", "2017" }) {
        const QString name = QStringLiteral("Mitgliedsdaten%1.pz").arg(QLatin1String(year));
        before.MembersFiles[QLatin1String(year)]
            = club.Exists(name) ? QByteArray("").append(club.Read(name)) : QByteArray();
    }
    for (const QString& name :
        QDir(club.program.Files.DataDirectory)
            .entryList({ QStringLiteral("Konto*.pz"), QStringLiteral("HandKasse*.pz") }))
        before.Ledgers[name] = club.Read(name);
    before.Records = club.program.Members.RecordList;
    before.Year = club.program.Year;
    before.YearNoteShown = !club.Control<QLabel>("YearNoteMember")->isHidden();
    return before;
}

/// How many lines of the one list the other has not.
qsizetype Missing(const QStringList& lines, QStringList others)
{
    qsizetype missing = 0;
    for (const QString& line : lines)
        missing += others.removeOne(line) ? 0 : 1;
    return missing;
}

/// No member leaves a file unless the user replaced or deleted him or was told.
void CheckMembersFiles(const Monkey& monkey, const Before& before)
{
    for (const char* action :
        { "meddling", "damaging", "starting", "Command11", "taking back", "aligning" }) {
        if (monkey.LastAction.contains(QLatin1String(action)))
            return; // other hands, or what replaces files that were asked about
    }
    const Before after = Remember(monkey);
    for (const QString& year : before.MembersFiles.keys()) {
        const QByteArray old = before.MembersFiles[year];
        if (old == after.MembersFiles[year])
            continue;
        Check(monkey, year == before.Year.YearText, "only the chosen year is written");
        const bool was_loaded = before.Year.LoadedYear == year
            && !before.Year.Troubles.NotLoaded.contains(year); // damaged since
        Check(monkey, was_loaded || !old.contains(QByteArray(40000, 'x')),
            "a file that cannot be loaded is not written");
        Check(monkey,
            before.Year.LoadedYear.isEmpty() || before.Year.LoadedYear == year
                || before.YearNoteShown,
            "a save into another year was said beforehand");
        Check(monkey,
            !old.isNull() || !before.Year.Troubles.RollForward
                || before.Year.Troubles.RollForwardYear != year
                || before.MembersFiles[PreviousYear(year)].isNull(),
            "no member is saved before last year's are taken over");
        Check(monkey, Missing(before.Records, monkey.Club.program.Members.RecordList) <= 1,
            "at most one member is replaced or deleted in a step");
    }
}

/// Bookings as sorting leaves them, so that they can be found again; nothing for a file that cannot
/// be loaded.
std::optional<QStringList> BookingsOf(const QByteArray& bytes)
{
    const QString text = DecodeAnsi(bytes);
    const QString end = text.contains(u'\r') ? QStringLiteral("\r\n") : QStringLiteral("\n");
    QStringList lines = text.split(end);
    lines.erase(std::find(lines.begin(), lines.end(), QString()), lines.end());
    const bool loads = std::none_of(lines.begin(), lines.end(),
        [](const QString& line) { return line.contains(u'\n') || line.size() > LongestLine; });
    return loads ? std::optional(SortLedgerByDate(lines)) : std::nullopt;
}

/// No booking leaves a file unless the user replaced or deleted it, was told, or lent a hand.
void CheckLedgers(Monkey& monkey, const Before& before, const CashBookState& book_before)
{
    const CashBookState& book = monkey.Club.program.CashBook;
    for (const auto& [old_list, new_list] :
        { std::pair(book_before.Bank, book.Bank), std::pair(book_before.CashBox, book.CashBox) }) {
        if (!monkey.LastAction.contains(QStringLiteral("Command12")))
            break;
        const QStringList sorted = SortLedgerByDate(old_list.Lines);
        for (const QString& line : sorted) {
            if (!new_list.Lines.contains(line))
                monkey.Replaced += line;
        }
    }
    for (const char* action : { "meddling", "damaging", "starting", "Command11", "taking back" }) {
        if (monkey.LastAction.contains(QLatin1String(action)))
            return;
    }
    const Before after = Remember(monkey);
    for (const QString& name : before.Ledgers.keys()) {
        const QByteArray& old = before.Ledgers[name];
        if (old == after.Ledgers.value(name))
            continue;
        ++monkey.LedgersWritten;
        const bool bank = name.startsWith(QStringLiteral("Konto"));
        const Ledger& list = bank ? book_before.Bank : book_before.CashBox;
        const std::optional<QStringList> bookings = BookingsOf(old);
        Check(monkey, bookings || !list.Unread, "a ledger that cannot be loaded is not written");
        const bool of_this_year = name.contains(list.Year);
        Check(monkey, of_this_year || before.YearNoteShown || list.Year.isEmpty(),
            "a save into another year was said beforehand");
        if (!bookings || !of_this_year || monkey.ErrorSinceLoad)
            continue;
        const QStringList now = BookingsOf(after.Ledgers.value(name)).value_or(QStringList());
        for (const QString& line : *bookings) {
            Check(monkey, now.contains(line) || monkey.Replaced.contains(line),
                "no booking leaves a file unless the user replaced or deleted it");
        }
    }
}

void CheckPromises(Monkey& monkey)
{
    const Program& program = monkey.Club.program;
    const MemberLists& members = program.Members;
    Check(monkey, members.RecordList.size() == members.NameList.size(), "as many names as records");
    Check(monkey, program.Statement.StatementTotals.size() <= members.RecordList.size(),
        "no more totals than members");
    const bool settled = !monkey.ErrorSinceLoad && program.Year.LoadedYear == program.Year.YearText;
    if (settled) {
        ++monkey.SettledChecks;
        Check(monkey, program.Statement.StatementTotals.size() == members.RecordList.size(),
            "one total for every member");
        Check(monkey, FileHolds(monkey, MembersFileName(program.Year.YearText), members.RecordList),
            "the members file parses back to the record list");
    }
    const CashBookState& book = program.CashBook;
    const QString caption = program.CashBookTab.Command15->text();
    const bool bank = caption == QStringLiteral("Kasse Kassenwart");
    const QStringList& shown = bank ? book.Bank.Lines : book.CashBox.Lines;
    Check(monkey, program.CashBookTab.ListView1->model()->rowCount() == shown.size(),
        "one row for every booking");
    Check(monkey, program.CashBookTab.BalanceLabel->text() == BalanceOf(shown),
        "the balance is the sum of the lines");
    Check(monkey,
        (bank || caption == QStringLiteral("Konto Sparkasse"))
            && book.LedgerFileName.contains(
                bank ? QStringLiteral("Konto") : QStringLiteral("HandKasse")),
        "the caption of the account button is the state");
    Check(monkey, program.Errors.Depth == 0 && !program.Errors.Showing, "no handler is left open");
    const QStringList strangers = QDir(program.Files.DataDirectory)
                                      .entryList({ QStringLiteral("*.tmp"), QStringLiteral("*~") });
    Check(monkey, strangers.isEmpty(), "no file of ours lies among the data");
}

/// How many bookings more one list holds; nothing when it was read for another year.
qsizetype Growth(const Ledger& before, const Ledger& after)
{
    return before.Year == after.Year ? after.Lines.size() - before.Lines.size() : 0;
}

/// A list is read for another year only when its own is neither the chosen nor the loaded one.
void CheckLedgerYear(const Monkey& monkey, const Ledger& before, const Ledger& after)
{
    const YearState& year = monkey.Club.program.Year;
    Check(monkey,
        before.Year == after.Year || IsOfAnotherYear(before, year.YearText, year.LoadedYear)
            || before.Lines.isEmpty(),
        "a list of the chosen or of the loaded year stays");
}

/// What may change in the ledgers in one step: one booking more or less, or a whole reload.
void CheckLedgerSteps(Monkey& monkey, const CashBookState& before, const QString& loaded_before)
{
    const CashBookState& after = monkey.Club.program.CashBook;
    const bool reloaded = monkey.LastAction.contains(QStringLiteral("Command4"))
        || monkey.LastAction.contains(QStringLiteral("Command1("))
        || monkey.LastAction.contains(QStringLiteral("Command2"))
        || monkey.LastAction.contains(QStringLiteral("Command15"))
        || monkey.LastAction.contains(QStringLiteral("Command11"))
        || monkey.LastAction.contains(QStringLiteral("reading")) // a link presses Command15
        || monkey.LastAction.contains(QStringLiteral("Text1("))
        || monkey.LastAction.contains(QStringLiteral("taking back"))
        || monkey.LastAction.contains(QStringLiteral("aligning"))
        || loaded_before != monkey.Club.program.Year.LoadedYear;
    if (reloaded)
        return;
    CheckLedgerYear(monkey, before.Bank, after.Bank);
    CheckLedgerYear(monkey, before.CashBox, after.CashBox);
    const qsizetype bank = Growth(before.Bank, after.Bank);
    const qsizetype cash = Growth(before.CashBox, after.CashBox);
    Check(monkey, qAbs(bank) + qAbs(cash) <= 1, "at most one booking comes or goes in a step");
    const bool removed = bank < 0 || cash < 0;
    Check(monkey, !removed || monkey.LastAction.contains(QStringLiteral("Command12(1)")),
        "a booking goes only through its button");
}

void CheckAgainstRedraw(Monkey& monkey)
{
    const QString difference = DifferenceToFullRedraw(monkey.Club.program);
    if (!difference.isEmpty())
        Fail(monkey, QStringLiteral("shown as a full redraw would: ") + difference);
}

/// Whatever happened, it can be had again.
void CheckHistory(Monkey& monkey)
{
    const QString broken = BrokenPromise(monkey.Kept, monkey.Club.program.Files);
    if (!broken.isEmpty())
        Fail(monkey, QStringLiteral("the history: ") + broken);
}

void OneStep(Monkey& monkey)
{
    struct Way {
        int share;
        void (*routine)(Monkey&);
    };
    static constexpr Way ways[] = { { 40, TypeSomething }, { 30, PressSomething },
        { 30, PickSomething }, { 6, PickADay }, { 4, ToggleSomething }, { 10, ChangeTheTab },
        { 4, ScrollThePreview }, { 6, ReadAReport }, { 3, LookIntoAWindow }, { 6, TypeAReading },
        { 2, AlignTheYears }, { 1, CreatePdfs }, { 2, SwitchTheCode }, { 2, ChangeAMeter },
        { 3, TakeBackByKey }, { 1, MeddleWithFiles }, { 1, DamageAFile }, { 2, StepTheYear },
        { 1, StartAnew }, { 2, StartAfresh } };
    int all = 0;
    for (const Way& way : ways)
        all += way.share;
    int ball = Below(monkey, all);
    for (const Way& way : ways) {
        ball -= way.share;
        if (ball < 0)
            return way.routine(monkey);
    }
}

void Prepare(Monkey& monkey)
{
    TestClub& club = monkey.Club;
    Program& program = club.program;
    club.CopyExample(QStringLiteral("ordinary-year"));
    QDir(club.Folder.path()).mkdir(QStringLiteral("stick"));
    program.Ask = [&monkey](const MessageBox& box) {
        monkey.Club.Boxes += box;
        ++monkey.BoxCount;
        if (monkey.Club.Boxes.size() > 20)
            monkey.Club.Boxes.removeFirst();
        if (box.icon == BoxIcon::Error)
            monkey.ErrorSinceLoad = true;
        const bool first = Below(monkey, 2) == 0;
        if (box.buttons == BoxButtons::YesNo)
            return first ? BoxAnswer::Yes : BoxAnswer::No;
        return box.buttons == BoxButtons::Ok || first ? BoxAnswer::Ok : BoxAnswer::Cancel;
    };
    LookAtFiles(monkey.Kept, program.Files);
    club.Start({ 2017, 11, 20 });
    const QString stick = club.Folder.filePath(QStringLiteral("stick"));
    program.Backup.FindDrive = [stick] { return stick; };
    program.PrintFrame.ShowPrintDialog = [](QPrinter&) { return false; }; // the dialog is cancelled

    const QMainWindow* window = program.Window.Window;
    monkey.Fields = window->findChildren<QLineEdit*>();
    erase_if(monkey.Fields, [](const QLineEdit* field) { return field->objectName().isEmpty(); });
    monkey.Buttons = window->findChildren<QPushButton*>();
    erase_if(monkey.Buttons, [&program](const QPushButton* button) {
        return button->objectName().isEmpty() || button == program.Window.Command8;
    });
    for (const char* name : { "List1", "List4", "List9", "ListView1", "ListView2" })
        monkey.Lists += club.Control<QAbstractItemView>(name);
    for (const char* name : { "Cal3", "Calendar1", "Calendar2" })
        monkey.Calendars += club.Control<QCalendarWidget>(name);
    for (const char* name : { "Check1", "Check2", "Option1", "Option2" })
        monkey.Toggles += club.Control<QWidget>(name);
}

} // namespace

void Check(const Monkey& monkey, bool holds, const char* promise)
{
    if (!holds)
        Fail(monkey, QString::fromUtf8(promise));
}

int Below(Monkey& monkey, qsizetype bound)
{
    return static_cast<int>(monkey.Dice.bounded(static_cast<quint32>(bound)));
}

const QString& AnyText(Monkey& monkey)
{
    static const QStringList texts { QStringLiteral("12,50"), QStringLiteral("0,00"), QString(),
        QStringLiteral("1200"), QStringLiteral("-3,5"), QStringLiteral("abc"),
        QStringLiteral("Meier"), QStringLiteral("Schulze2"), QStringLiteral("von Łódź; Straße"),
        QStringLiteral("01.12.2017"), QStringLiteral("31.12.2016"), QStringLiteral("1.3.17"),
        QStringLiteral("Abrechnung Meier"), QStringLiteral("1.250,00"), QStringLiteral("€ m² ™"),
        QStringLiteral("Meier,Anna"), QStringLiteral("99999999999999999999") };
    return texts[Below(monkey, texts.size())];
}

void TypeKeys(QWidget* field, const QString& text)
{
    for (const QChar letter : text) // key by key; QTest::keyClicks knows ASCII only
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), Qt::NoModifier);
}

int main(int argument_count, char** arguments)
{
    QApplication application(argument_count, arguments);
    InstallGerman(application);
    const int steps = argument_count > 1 ? std::atoi(arguments[1]) : default_steps;
    const quint32 seed = argument_count > 2
        ? static_cast<quint32>(std::strtoul(arguments[2], nullptr, 10))
        : default_seed;

    const bool redraw = argument_count > 3 && qstrcmp(arguments[3], "redraw") == 0;

    Monkey monkey;
    monkey.Dice.seed(seed);
    Prepare(monkey);
    CheckPromises(monkey);
    CheckHistory(monkey);
    for (monkey.Step = 1; monkey.Step <= steps; ++monkey.Step) {
        const CashBookState before = monkey.Club.program.CashBook;
        const QString loaded_before = monkey.Club.program.Year.LoadedYear;
        const Before members_before = Remember(monkey);
        monkey.LastAction.clear();
        OneStep(monkey);
        CheckMembersFiles(monkey, members_before);
        if (monkey.LastAction == QStringLiteral("pressing Command4") && monkey.Club.Boxes.isEmpty())
            monkey.ErrorSinceLoad = false;
        CheckLedgers(monkey, members_before, before);
        CheckLedgerSteps(monkey, before, loaded_before);
        CheckPromises(monkey);
        const qsizetype confirmed = monkey.Kept.Confirmed.size();
        CheckHistory(monkey);
        if (monkey.Kept.Confirmed.size() > confirmed)
            ++monkey.Done[QStringLiteral("kept by ") + monkey.LastAction];
        if (redraw)
            CheckAgainstRedraw(monkey);
        ++monkey.Done[monkey.LastAction];
        monkey.Club.Boxes.clear();
        QCoreApplication::processEvents();
    }
    if (qEnvironmentVariableIsSet("MONKEY_TELLS")) {
        for (auto action = monkey.Done.cbegin(); action != monkey.Done.cend(); ++action)
            std::printf("%6d %s\n", action.value(), qPrintable(action.key()));
        std::printf("%6d boxes\n%6d checks of lists against files\n%6d ledgers written\n"
                    "%6lld kept states\n",
            monkey.BoxCount, monkey.SettledChecks, monkey.LedgersWritten,
            static_cast<long long>(monkey.Kept.Confirmed.size()));
    }
    if (steps >= 1000
        && (monkey.SettledChecks < steps / 10 || monkey.BoxCount == 0
            || monkey.Kept.Confirmed.size() < 20))
        Fail(monkey, QStringLiteral("the walk was too quiet to prove anything"));
    std::printf("monkey: %d steps, seed %u, every promise held\n", steps, seed);
    return 0;
}
