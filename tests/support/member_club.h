// A club whose members file of 2017 has the given content, with the real main window on the tab
// "Stammdaten".
#pragma once

#include "data/records.h"
#include "tests/support/club.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

struct MemberClub : TestClub {
    static constexpr auto this_year = "Mitgliedsdaten2017.pz";

    /// Writes the file as code page 1252 (a null text: no file) and loads 2017.
    explicit MemberClub(const QString& content)
    {
        if (!content.isNull())
            Write(QString::fromLatin1(this_year), content.toLatin1());
        program.Today = [] { return QDate(2017, 11, 20); };
        BuildMainWindow(program);
        program.Year.YearText = QStringLiteral("2017");
        program.Window.Window->show();
        program.Window.Window->activateWindow(); // keys of a window work only in front
        if (!QTest::qWaitForWindowActive(program.Window.Window))
            qFatal("the window does not become active");
        WithErrorBox(program.Errors, program.Ask, [this] {
            program.Member.CurrentMember = 0; // as start-up does
            ShowMember(program);
            LoadYear(program);
        });
    }

    QByteArray File() const { return Read(QString::fromLatin1(this_year)); }

    QStringList Record(int position) const
    {
        return SplitRecord(program.Members.RecordList.value(position));
    }

    QLineEdit* Field(int index) const
    {
        return Control<QLineEdit>(qPrintable(ControlName(QStringLiteral("Text3"), index)));
    }

    QLineEdit* Reading(int index) const
    {
        return Control<QLineEdit>(qPrintable(ControlName(QStringLiteral("Text1"), index)));
    }

    QStringList FieldTexts() const
    {
        QStringList texts;
        for (int field = 0; field < 12; ++field)
            texts += Field(field)->text();
        return texts;
    }

    QStringList ReadingTexts() const
    {
        QStringList texts;
        for (int field = 0; field < 6; ++field)
            texts += Reading(field)->text();
        return texts;
    }

    QListWidget* Names() const { return Control<QListWidget>("List1"); }

    QStringList ShownNames() const
    {
        QStringList names;
        for (int row = 0; row < Names()->count(); ++row)
            names += Names()->item(row)->text();
        return names;
    }

    void ClickName(int row) const
    {
        const QRect place = Names()->visualItemRect(Names()->item(row));
        QTest::mouseClick(Names()->viewport(), Qt::LeftButton, {}, place.center());
    }

    void Click(const char* button) const { Control<QPushButton>(button)->click(); }

    /// Replaces the field's text by keys, as a user does (characters of the keyboard's first page
    /// only).
    static void Type(QLineEdit* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        if (text.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
        else
            QTest::keyClicks(field, text);
    }

    /// Texts and sentences of the error boxes so far.
    QStringList Errors() const
    {
        QStringList errors;
        for (const MessageBox& box : Boxes) {
            if (box.icon == BoxIcon::Error)
                errors += box.text + QLatin1Char('\n') + box.detail;
        }
        return errors;
    }
};
