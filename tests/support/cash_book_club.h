// A club on the tab "Kontoführung": three members, ledgers as given, the tab in front.
#pragma once

#include "tests/support/club.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

struct CashBookClub : TestClub {
    static constexpr char bank[] = "Konto2016.pz";
    static constexpr char cash_box[] = "HandKasse2016.pz";
    static constexpr char no_file[] = "(none)";

    /// Ledgers of 2016 as texts (written in code page 1252); null: no such file. Starts on
    /// 3.3.2016 unless it is told not to.
    explicit CashBookClub(
        const QString& bank_lines = {}, const QString& cash_box_lines = {}, bool starts = true)
    {
        Write(QStringLiteral("Mitgliedsdaten2016.pz"),
            "Meier;Anna;;;;;;3;0,00;0,00;0,00;0,00;;;;\r\n"
            "van Dijk;Jan;;;;;;;0,00;0,00;0,00;0,00;;;;\r\n"
            "Lang;Otto;;;;;;1;0,00;0,00;0,00;0,00;;;;\r\n");
        if (!bank_lines.isNull())
            Write(QString::fromLatin1(bank), Ansi(bank_lines));
        if (!cash_box_lines.isNull())
            Write(QString::fromLatin1(cash_box), Ansi(cash_box_lines));
        if (starts)
            StartOnTab();
    }

    void StartOnTab(const QDate& today = QDate(2016, 3, 3))
    {
        Start(today);
        Show();
        Boxes.clear();
    }

    void Show()
    {
        program.Window.Window->show();
        program.Window.SSTab1->setCurrentIndex(2);
        program.Window.Window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.Window.Window));
    }

    static QByteArray Ansi(const QString& text) { return text.toLatin1(); } // umlauts are the same

    QLineEdit* Field(int index) const { return program.CashBookTab.Text10[std::size_t(index)]; }
    QTableView* View() const { return program.CashBookTab.ListView1; }
    QListWidget* Names() const { return program.CashBookTab.List4; }
    const CashBookState& Book() const { return program.CashBook; }
    QString Balance() const { return Control<QLabel>("BalanceLabel")->text(); }

    QString File(const char* name) const
    {
        const QString file = QString::fromLatin1(name);
        return Exists(file) ? QString::fromLatin1(Read(file)) : QString::fromLatin1(no_file);
    }

    void Click(const char* button) const
    {
        QTest::mouseClick(Control<QPushButton>(button), Qt::LeftButton);
    }

    void ClickRow(int row) const { ClickItem(View(), View()->model()->index(row, 1)); }

    static void ClickItem(const QAbstractItemView* view, const QModelIndex& index)
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }

    static void ClickEntry(const QListWidget* list, int row)
    {
        ClickItem(list, list->model()->index(row, 0));
    }

    /// What a user does who types into the field: its old text is replaced.
    static void Type(QLineEdit* field, const QString& text)
    {
        field->setFocus();
        field->selectAll();
        if (text.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
        for (const QChar sign : text)
            QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(sign), {});
    }

    void TypeBooking(const QString& date, const QString& text, const QString& deposit,
        const QString& withdrawal) const
    {
        Type(Field(0), date);
        Type(Field(1), text);
        Type(Field(2), deposit);
        Type(Field(3), withdrawal);
    }

    QStringList FieldTexts() const
    {
        return { Field(0)->text(), Field(1)->text(), Field(2)->text(), Field(3)->text() };
    }

    QStringList Row(int row) const
    {
        QStringList texts;
        for (int column = 0; column < View()->model()->columnCount(); ++column)
            texts += View()->model()->index(row, column).data().toString();
        return texts;
    }

    /// The texts ("Vorgang") of all rows.
    QStringList Texts() const
    {
        QStringList texts;
        for (int row = 0; row < View()->model()->rowCount(); ++row)
            texts += Row(row).value(1);
        return texts;
    }

    /// The marked row, -1 when none is.
    int MarkedRow() const
    {
        const QModelIndexList rows = View()->selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }

    QStringList PaidNames() const
    {
        QStringList names;
        for (int row = 0; row < Names()->count(); ++row) {
            if (Names()->item(row)->isSelected())
                names += Names()->item(row)->text();
        }
        return names;
    }

    /// Text and title of the boxes since the start, and that they are warnings with "OK" alone.
    QStringList Hints() const
    {
        QStringList hints;
        for (const MessageBox& box : Boxes) {
            const bool warns = box.icon == BoxIcon::Exclamation && box.buttons == BoxButtons::Ok;
            hints += box.title + QLatin1Char('|') + box.text
                + (warns ? QString() : QStringLiteral("!"));
        }
        return hints;
    }
};

// What several tests of the tab expect and book

inline const QString no_history
    = QStringLiteral("Hinweis|Achtung ! Es ist am besten erst einen aktuelles Guthaben unter "
                     "Ein & Ausgaben einzutragen da sonst das Konto mit Minus anfängt.");

inline QString NewYear(const QString& year)
{
    return QStringLiteral("Hinweis|Achtung ! Es beginnt ein Neues Jahr ") + year
        + QStringLiteral(" und Ihr Konto wird mit Übertrag neu Weitwrgeführt !");
}

inline const QString bank_line = QStringLiteral("01.02.2016;Anfang;100,00;0,00\r\n");
inline const QString cash_line = QStringLiteral("01.02.2016;Kasse;50,00;0,00\r\n");

inline void BookPorto(const CashBookClub& club, const QString& text = QStringLiteral("Porto"))
{
    club.TypeBooking(
        QStringLiteral("02.02.2016"), text, QStringLiteral("0,00"), QStringLiteral("1,00"));
    club.Click("Command12(0)");
}
