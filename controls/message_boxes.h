// Message boxes behind one seam: the program asks through Program::Ask, tests put their prepared
// answers there.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>

enum class BoxIcon { None, Information, Question, Exclamation, Error };
enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// A modal message box: texts as shown, buttons "OK", "Abbrechen", "Ja", "Nein".
struct MessageBox {
    QString text;
    QString title;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    QString detail; ///< second paragraph, e.g. the sentence of an error; empty: none
};

using AskRoutine = std::function<BoxAnswer(const MessageBox&)>;

/// A box that only tells something: "OK", no icon.
void Tell(const AskRoutine& ask, const QString& title, const QString& text);

/// Shows the box over the window and waits. Escape in a box with "Abbrechen" is "Abbrechen"; in a
/// Yes/No box Escape and the title bar's cross do nothing. The box's object name is "MessageBox".
BoxAnswer ShowMessageBox(QWidget* window, const MessageBox& box);
