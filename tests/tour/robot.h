// The tour's user: works the real window with mouse and keys, finds controls by their names,
// answers message boxes and dialogs as they come up. What it is asked to do and cannot do (a
// control that is hidden, covered or disabled, a box nobody expected) is a fault of the tour.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class QDate;
class QDialog;
class QMainWindow;
class QRect;
class QWidget;

/// A message box that is to come up, and the button that answers it. Several boxes come in order.
struct ExpectedBox {
    QString title;
    QString text; ///< the whole text, with the second paragraph behind a line break
    QString button;
};

class Robot : public QObject {
public:
    explicit Robot(QMainWindow* window);

    /// Presses the left button in the middle of the control.
    void Click(const QString& name);

    /// Clicks into the field, selects what stands there and types the text.
    void Type(const QString& name, const QString& text);

    /// Types a text into whatever has the focus.
    void Keys(const QString& text);

    /// Presses a key, e.g. "Ctrl+S" or "Return", in whatever has the focus.
    void Press(const QString& keys);

    /// Clicks a tab of SSTab1 by its caption.
    void Tab(const QString& caption);

    /// Clicks a row of a list or table; rows and columns count from 0.
    void ClickRow(const QString& name, int row, int column = 0);

    /// Clicks a day of a calendar, stepping to its month with the calendar's own arrows.
    void PickDay(const QString& name, const QDate& day);

    /// The next box; it is answered when it comes up.
    void Expect(const QString& title, const QString& text, const QString& button);

    /// The next dialog that is no message box goes to this routine, which has to close it.
    void ExpectDialog(std::function<void(QDialog&)> routine);

    /// A button of a dialog by its caption.
    void ClickButton(QDialog& dialog, const QString& caption);

    /// Faults since the last call: boxes that came unexpected or with another text, expected ones
    /// that did not come, clicks that found nothing. Empty when all is well.
    QStringList Faults();

    /// Saves a picture of the window.
    void Picture(const QString& path);

    QWidget* Control(const QString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The window in front gets the keys: on a screen without a window manager nobody else gives
    /// them back to the main window when a box was closed.
    void Activate();
    void ClickAt(QWidget* control, const QRect& area);
    void Answer(QDialog& dialog);
    void AnswerBox(QDialog& box);
    void Fault(const QString& fault);

    QMainWindow* Window;
    QList<ExpectedBox> Boxes;
    QList<std::function<void(QDialog&)>> Dialogs;
    QStringList FaultsSoFar;
};
