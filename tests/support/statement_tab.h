// The tab "Druckvorlagen" alone, filled with the year of an example club: no files, no other tabs.
#pragma once

#include "app/program.h"
#include "tests/support/example_bills.h"

#include <QTemporaryDir>
#include <QWidget>

struct LoneStatementTab {
    QTemporaryDir Folder; ///< for printed files
    Program program;
    QWidget Tab;
    QStringList Boxes; ///< "text | detail" of every box
    int DialogsShown = 0;
    QString Job; ///< title of the last print job

    /// The tab with that year's pages drawn, not shown.
    explicit LoneStatementTab(const ExampleYear& example);

    /// Lays the tab out at that size without a screen.
    void Show(int width, int height);

    /// Clicks a button or option by its object name.
    void Click(const char* name);
    QString TextOf(const char* name) const;
    void Type(const char* name, const QString& text);

    /// The printer dialog will be confirmed with this file as printer; returns its path.
    QString PrintTo(const QString& name);

    template <typename Kind> Kind* Control(const char* name) const
    {
        return Find<Kind>(&Tab, QString::fromLatin1(name));
    }
};

/// The example year of that club; the first one when it has several.
ExampleYear YearOf(const QString& club);
