// Rules that hold for every window behind "Mehr": names for screen readers, room for every text,
// the Tab key reaches everything, no underlined letter stands twice.
#include "tests/support/more_club.h"
#include "tests/support/test_file.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTextBrowser>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Letters of another size while it lives.
struct FontSize {
    QFont Before = QApplication::font();
    explicit FontSize(int points)
    {
        QFont font = Before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~FontSize() { QApplication::setFont(Before); }
    FontSize(const FontSize&) = delete;
    FontSize& operator=(const FontSize&) = delete;
};

bool TakesInput(const QWidget* widget)
{
    const bool inside = qobject_cast<const QAbstractItemView*>(widget->parentWidget()) != nullptr;
    return !inside
        && (qobject_cast<const QLineEdit*>(widget) != nullptr
            || qobject_cast<const QAbstractButton*>(widget) != nullptr
            || qobject_cast<const QAbstractItemView*>(widget) != nullptr
            || qobject_cast<const QTextBrowser*>(widget) != nullptr);
}

/// What is shown in the window and can be used.
QList<QWidget*> InputsOf(const QWidget* window)
{
    QList<QWidget*> inputs = window->findChildren<QWidget*>();
    erase_if(inputs, [](const QWidget* w) { return !w->isVisible() || !TakesInput(w); });
    return inputs;
}

const QLabel* CaptionOf(const QWidget* widget)
{
    for (const QLabel* label : widget->window()->findChildren<QLabel*>()) {
        if (label->buddy() == widget)
            return label;
    }
    return nullptr;
}

QString SpokenName(const QWidget* widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button != nullptr && widget->accessibleName().isEmpty() ? button->text().remove(u'&')
                                                                   : widget->accessibleName();
}

/// The letter behind the mark, null when there is none.
QChar UnderlinedLetter(const QString& caption)
{
    const qsizetype mark = caption.indexOf(u'&');
    return mark < 0 ? QChar() : caption.at(mark + 1).toLower();
}

/// Where the focus goes when Tab is pressed again and again.
QSet<QWidget*> ReachedByTab(QWidget* window)
{
    QSet<QWidget*> reached;
    for (int presses = 0; presses < 40; ++presses) {
        QWidget* focus = QApplication::focusWidget();
        reached.insert(focus);
        QTest::keyClick(focus != nullptr ? focus : window, Qt::Key_Tab);
    }
    return reached;
}

/// Width and height that the texts of the widget need; nothing when it has none of its own.
QSize NeededBy(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        if (!label->wordWrap() || label->text().isEmpty())
            return label->text().isEmpty() ? QSize() : label->sizeHint();
        return { 0, label->heightForWidth(label->width()) };
    }
    if (const auto* button = qobject_cast<const QPushButton*>(widget))
        return { button->fontMetrics().horizontalAdvance(button->text().remove(u'&')) + 4,
            button->fontMetrics().height() };
    if (qobject_cast<const QCheckBox*>(widget) != nullptr
        || qobject_cast<const QRadioButton*>(widget) != nullptr)
        return widget->sizeHint();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget))
        return { 0, field->fontMetrics().height() };
    return {};
}

void AllEntries()
{
    QTest::addColumn<QString>("entry");
    for (const QString& entry : MoreClub::Entries())
        QTest::newRow(qPrintable(entry)) << entry;
}

} // namespace

class TestMoreWindows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void every_window_has_a_title_and_names_for_a_screen_reader_data() { AllEntries(); }

    void every_window_has_a_title_and_names_for_a_screen_reader()
    {
        QFETCH(QString, entry);
        MoreClub club;
        const QWidget* window = club.Open(entry);
        QVERIFY(!window->windowTitle().isEmpty());
        QVERIFY(window->windowTitle() != club.program.Window.Window->windowTitle());
        QStringList names;
        for (const QWidget* input : InputsOf(window)) {
            const QString name = SpokenName(input);
            QVERIFY2(!name.isEmpty(), qPrintable(input->objectName()));
            QVERIFY2(!names.contains(name), qPrintable(name));
            names += name;
        }
        QVERIFY(names.size() >= 3);
    }

    void every_field_has_a_caption_and_every_button_of_a_report_a_tool_tip_data() { AllEntries(); }

    void every_field_has_a_caption_and_every_button_of_a_report_a_tool_tip()
    {
        QFETCH(QString, entry);
        MoreClub club;
        const QWidget* window = club.Open(entry);
        for (const QWidget* input : InputsOf(window)) {
            if (qobject_cast<const QLineEdit*>(input) != nullptr)
                QVERIFY2(CaptionOf(input) != nullptr, qPrintable(input->objectName()));
            if (input->objectName().startsWith(u"Report"_s)
                && qobject_cast<const QPushButton*>(input) != nullptr)
                QVERIFY2(!input->toolTip().isEmpty(), qPrintable(input->objectName()));
        }
    }

    void the_tab_key_reaches_everything_that_can_be_used_data() { AllEntries(); }

    void the_tab_key_reaches_everything_that_can_be_used()
    {
        QFETCH(QString, entry);
        MoreClub club;
        QWidget* window = club.Open(entry);
        QVERIFY(QTest::qWaitForWindowActive(window));
        const QSet<QWidget*> reached = ReachedByTab(window);
        int enabled = 0;
        for (QWidget* input : InputsOf(window)) {
            const auto* field = qobject_cast<const QLineEdit*>(input);
            const auto* choice = qobject_cast<const QRadioButton*>(input);
            if (!input->isEnabled() || (field != nullptr && field->isReadOnly())
                || (choice != nullptr && !choice->isChecked())) // the arrow keys go on from there
                continue;
            ++enabled;
            QVERIFY2(reached.contains(input), qPrintable(input->objectName()));
        }
        QVERIFY(enabled >= 3);
    }

    void no_underlined_letter_stands_twice_data() { AllEntries(); }

    void no_underlined_letter_stands_twice()
    {
        QFETCH(QString, entry);
        MoreClub club;
        const QWidget* window = club.Open(entry);
        QList<QChar> letters;
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const auto* label = qobject_cast<const QLabel*>(widget);
            const QString caption = button != nullptr ? button->text()
                : label != nullptr && label->buddy()  ? label->text()
                                                      : QString();
            const QChar letter = UnderlinedLetter(caption);
            if (letter.isNull())
                continue;
            QVERIFY2(!letters.contains(letter), qPrintable(caption));
            letters += letter;
        }
    }

    void every_text_has_room_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("points");
        for (const QString& entry : MoreClub::Entries()) {
            for (const int points : { 9, 12, 16, 20 })
                QTest::addRow("%s %d pt", qPrintable(entry), points) << entry << points;
        }
    }

    void every_text_has_room()
    {
        QFETCH(QString, entry);
        QFETCH(int, points);
        const FontSize letters(points);
        MoreClub club;
        const QWidget* window = club.Open(entry);
        int measured = 0;
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            const QSize needed = widget->isVisible() ? NeededBy(widget) : QSize();
            if (!needed.isValid())
                continue;
            ++measured;
            QVERIFY2(needed.width() <= widget->width() && needed.height() <= widget->height(),
                qPrintable(u"%1: needs %2 × %3, has %4 × %5"_s.arg(widget->objectName())
                               .arg(needed.width())
                               .arg(needed.height())
                               .arg(widget->width())
                               .arg(widget->height())));
            QVERIFY2(
                window->rect().contains(QRect(widget->mapTo(window, QPoint()), widget->size())),
                qPrintable(widget->objectName()));
        }
        QVERIFY(measured >= 3);
    }

    void every_column_of_a_table_has_room_for_its_caption_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("points");
        for (const int points : { 9, 16 }) {
            for (const char* entry : { "MoreReadings", "MoreAlign" })
                QTest::addRow("%s %d pt", entry, points) << QString::fromLatin1(entry) << points;
        }
    }

    void every_column_of_a_table_has_room_for_its_caption()
    {
        QFETCH(QString, entry);
        QFETCH(int, points);
        const FontSize letters(points);
        MoreClub club;
        const auto* table = club.Open(entry)->findChild<QTableView*>();
        const QHeaderView* header = table->horizontalHeader();
        for (int column = 0; column < header->count(); ++column) {
            const QString caption = table->model()->headerData(column, Qt::Horizontal).toString();
            QVERIFY(!caption.isEmpty());
            QVERIFY2(
                header->sectionSize(column) >= header->fontMetrics().horizontalAdvance(caption),
                qPrintable(caption));
        }
    }
};

const TestFile<TestMoreWindows> test_file(__FILE__);
#include "test_more_windows.moc"
