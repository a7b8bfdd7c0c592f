#include "tests/tour/robot.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QDate>
#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

namespace {

/// Brings a control that was scrolled out of sight back into it, as a user would.
void ScrollTo(QWidget* control)
{
    for (QWidget* parent = control->parentWidget(); parent != nullptr;
         parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent))
            area->ensureWidgetVisible(control);
    }
    QCoreApplication::processEvents();
}

QAbstractItemView* DaysOf(QCalendarWidget* calendar)
{
    return calendar->findChild<QAbstractItemView*>(QStringLiteral("qt_calendar_calendarview"));
}

/// The cell of a day of the shown month. Days of the months around it stand in the same table.
QModelIndex CellOf(QCalendarWidget* calendar, const QDate& day)
{
    const QAbstractItemModel* model = DaysOf(calendar)->model();
    bool in_month = false;
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex cell = model->index(row, column);
            bool is_day = false;
            const int number = cell.data().toString().toInt(&is_day);
            if (!is_day
                || (column == 0
                    && calendar->verticalHeaderFormat() != QCalendarWidget::NoVerticalHeader))
                continue; // names of days, numbers of weeks
            if (number == 1)
                in_month = !in_month;
            if (in_month && number == day.day())
                return cell;
        }
    }
    return {};
}

QToolButton* ArrowOf(QCalendarWidget* calendar, bool forward)
{
    return calendar->findChild<QToolButton*>(forward ? QStringLiteral("qt_calendar_nextmonth")
                                                     : QStringLiteral("qt_calendar_prevmonth"));
}

int MonthNumber(int year, int month) { return year * 12 + month; }

} // namespace

Robot::Robot(QMainWindow* window)
    : Window(window)
{
    qApp->installEventFilter(this);
}

QWidget* Robot::Control(const QString& name)
{
    auto* control = Window->findChild<QWidget*>(name);
    if (control == nullptr)
        Fault(QStringLiteral("there is no control ") + name);
    return control;
}

void Robot::Activate()
{
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* front = modal != nullptr ? modal : Window;
    if (front->isActiveWindow())
        return;
    front->activateWindow();
    if (!QTest::qWaitForWindowActive(front))
        Fault(QStringLiteral("this window does not come to the front: ") + front->windowTitle());
}

void Robot::ClickAt(QWidget* control, const QRect& area)
{
    Activate();
    ScrollTo(control);
    const QPoint point = control->mapToGlobal(area.center());
    const QWidget* hit = QApplication::widgetAt(point);
    if (!control->isVisible() || !control->isEnabled())
        Fault(control->objectName() + QStringLiteral(" is hidden or disabled"));
    else if (hit != control && !control->isAncestorOf(hit))
        Fault(control->objectName() + QStringLiteral(" is covered or out of the window"));
    else {
        QWindow* window = control->window()->windowHandle();
        QTest::mouseClick(window, Qt::LeftButton, {}, window->mapFromGlobal(point));
    }
}

void Robot::Click(const QString& name)
{
    if (QWidget* control = Control(name))
        ClickAt(control, control->rect());
}

void Robot::Type(const QString& name, const QString& text)
{
    auto* control = Control(name);
    if (control == nullptr)
        return;
    Click(name);
    if (!control->hasFocus()) {
        Fault(name + QStringLiteral(" did not get the focus"));
        return;
    }
    Press(QStringLiteral("Ctrl+A"));
    if (text.isEmpty())
        Press(QStringLiteral("Del"));
    else
        Keys(text);
}

void Robot::Keys(const QString& text)
{
    Activate();
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) {
        Fault(QStringLiteral("nothing has the focus for ") + text);
        return;
    }
    // QTest::keyClicks knows no umlauts. A key of the Latin-1 range has its character's number.
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, focus,
            static_cast<Qt::Key>(character.toUpper().unicode()), QString(character),
            Qt::NoModifier);
}

void Robot::Press(const QString& keys)
{
    Activate();
    const QKeySequence sequence(keys);
    QWindow* window = QGuiApplication::focusWindow();
    if (window == nullptr || sequence.count() != 1) {
        Fault(QStringLiteral("no window takes the key ") + keys);
        return;
    }
    QTest::keyClick(window, sequence[0].key(), sequence[0].keyboardModifiers());
}

void Robot::Tab(const QString& caption)
{
    auto* tabs = qobject_cast<QTabWidget*>(Control(QStringLiteral("SSTab1")));
    if (tabs == nullptr)
        return;
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (tabs->tabText(tab) == caption) {
            ClickAt(tabs->tabBar(), tabs->tabBar()->tabRect(tab));
            return;
        }
    }
    Fault(QStringLiteral("there is no tab ") + caption);
}

void Robot::ClickRow(const QString& name, int row, int column)
{
    auto* view = qobject_cast<QAbstractItemView*>(Control(name));
    if (view == nullptr)
        return;
    const QModelIndex cell = view->model()->index(row, column);
    view->scrollTo(cell);
    const QRect area = view->visualRect(cell) & view->viewport()->rect();
    if (area.isEmpty())
        Fault(QStringLiteral("%1 has no row %2").arg(name).arg(row));
    else
        ClickAt(view->viewport(), area);
}

void Robot::PickDay(const QString& name, const QDate& day)
{
    auto* calendar = qobject_cast<QCalendarWidget*>(Control(name));
    if (calendar == nullptr)
        return;
    for (int steps = 0; steps < 100; ++steps) {
        const int shown = MonthNumber(calendar->yearShown(), calendar->monthShown());
        const int wanted = MonthNumber(day.year(), day.month());
        if (shown == wanted)
            break;
        QToolButton* arrow = ArrowOf(calendar, shown < wanted);
        ClickAt(arrow, arrow->rect());
    }
    QAbstractItemView* days = DaysOf(calendar);
    ClickAt(days->viewport(), days->visualRect(CellOf(calendar, day)));
}

void Robot::Expect(const QString& title, const QString& text, const QString& button)
{
    Boxes += ExpectedBox { title, text, button };
}

void Robot::ExpectDialog(std::function<void(QDialog&)> routine) { Dialogs += std::move(routine); }

void Robot::ClickButton(QDialog& dialog, const QString& caption)
{
    for (auto* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(QLatin1Char('&')) == caption && button->isVisible()) {
            ClickAt(button, button->rect());
            return;
        }
    }
    Fault(QStringLiteral("\"%1\" has no button \"%2\"").arg(dialog.windowTitle(), caption));
    dialog.reject();
}

/// A box blocks the routine that shows it, so it is answered from the event loop of the box itself.
bool Robot::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* dialog = qobject_cast<QDialog*>(watched)) {
            const QPointer<QDialog> still(dialog);
            QTimer::singleShot(0, this, [this, still] {
                if (still && still->isVisible())
                    Answer(*still);
            });
        }
    }
    return QObject::eventFilter(watched, event);
}

void Robot::Answer(QDialog& dialog)
{
    if (!QTest::qWaitForWindowExposed(&dialog))
        Fault(QStringLiteral("this dialog cannot be seen: ") + dialog.windowTitle());
    if (dialog.objectName() == QStringLiteral("MessageBox")) {
        AnswerBox(dialog);
    } else if (!Dialogs.isEmpty()) {
        const auto routine = Dialogs.takeFirst();
        routine(dialog);
    } else {
        Fault(QStringLiteral("unexpected dialog: ") + dialog.windowTitle());
        dialog.reject();
    }
}

void Robot::AnswerBox(QDialog& dialog)
{
    const auto& box = static_cast<const QMessageBox&>(dialog);
    QString text = box.text();
    if (!box.informativeText().isEmpty())
        text += QLatin1Char('\n') + box.informativeText();
    if (Boxes.isEmpty()) {
        Fault(QStringLiteral("unexpected box: %1: %2").arg(box.windowTitle(), text));
        dialog.done(0);
        return;
    }
    const ExpectedBox expected = Boxes.takeFirst();
    if (box.windowTitle() != expected.title || text != expected.text)
        Fault(QStringLiteral("box \"%1: %2\" instead of \"%3: %4\"")
                  .arg(box.windowTitle(), text, expected.title, expected.text));
    ClickButton(dialog, expected.button);
}

void Robot::Fault(const QString& fault) { FaultsSoFar += fault; }

QStringList Robot::Faults()
{
    for (const ExpectedBox& box : std::as_const(Boxes))
        Fault(QStringLiteral("this box did not come: ") + box.text);
    if (!Dialogs.isEmpty())
        Fault(QStringLiteral("a dialog did not come"));
    Boxes.clear();
    Dialogs.clear();
    QStringList faults;
    faults.swap(FaultsSoFar);
    return faults;
}

void Robot::Picture(const QString& path)
{
    QCoreApplication::processEvents();
    if (!Window->grab().save(path))
        Fault(QStringLiteral("cannot write ") + path);
}
