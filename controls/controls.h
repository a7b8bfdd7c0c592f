// Making and finding the window's controls. A control's object name is its name with the index in
// brackets: "Text3(6)".
#pragma once

#include <QString>
#include <QWidget>

/// "Text3(6)"
inline QString ControlName(const QString& name, int index)
{
    return name + u'(' + QString::number(index) + u')';
}

/// Gives a control its object name and returns it.
template <typename Control> Control* Named(Control* control, const QString& name)
{
    control->setObjectName(name);
    return control;
}

template <typename Control> Control* Named(Control* control, const QString& name, int index)
{
    return Named(control, ControlName(name, index));
}

/// The control of that object name below root; ends the program with a message when there is none
/// (a slip of the programmer, found by the first test that builds the window).
template <typename Control> Control* Find(const QWidget* root, const QString& name)
{
    auto* control = root->findChild<Control*>(name);
    if (control == nullptr)
        qFatal("no control %s", qPrintable(name));
    return control;
}
