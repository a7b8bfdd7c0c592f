// A club for tests of forms: a temporary data directory, a fixed date, prepared answers, the real
// main window.
#pragma once

#include "app/program.h"

#include <QDate>
#include <QList>
#include <QTemporaryDir>

#include <memory>

struct TestClub {
    QTemporaryDir
        Folder; ///< holds "daten" (the DataDirectory), "state", "stick", "root" and "home"
    Program program;
    QString Drive; ///< drive text that the search for the stick finds: "stick"; empty: none, and
                   ///< the backup goes to "root" or "home"
    QList<MessageBox> Boxes; ///< every box that was asked, in order
    QList<BoxAnswer> Answers; ///< taken one by one; when empty: Ok, or Yes in a Yes/No box

    TestClub();
    ~TestClub();
    TestClub(const TestClub&) = delete;
    TestClub& operator=(const TestClub&) = delete;

    /// Copies the files (not the folders) of tests/fixtures/examples/<name> into the DataDirectory.
    void CopyExample(const QString& name);

    /// Fixes today's date, builds the window (not shown) and runs StartUp.
    void Start(const QDate& today);

    /// Writes or reads a file of the DataDirectory, bytes as they are ("Konto2016.pz", without
    /// backslash).
    void Write(const QString& name, const QByteArray& bytes);
    QByteArray Read(const QString& name) const;
    bool Exists(const QString& name) const;
    QString Path(const QString& name) const;

    /// The control of that object name, e.g. Control<QLineEdit>("Text3(6)").
    template <typename Kind> Kind* Control(const char* name) const
    {
        return Find<Kind>(Window(), QString::fromLatin1(name));
    }

    const QWidget* Window() const;

    /// Title and text of the boxes asked so far, "title: text".
    QStringList BoxTexts() const;
};
