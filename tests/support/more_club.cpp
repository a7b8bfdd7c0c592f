#include "tests/support/more_club.h"

#include "app/more.h"

#include <QAction>
#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

const QString this_year = u"Mitgliedsdaten2017.pz"_s;
const QString last_year = u"Mitgliedsdaten2016.pz"_s;

/// The windows that are no reports, by their entries.
QString NameOfWindow(const QString& entry)
{
    static const QMap<QString, QString> names { { u"MoreReadings"_s, u"ReadingsWindow"_s },
        { u"MoreAlign"_s, u"AlignWindow"_s }, { u"MorePdf"_s, u"BillsAsPdf"_s },
        { u"MoreCode"_s, u"TransferCode"_s }, { u"MoreMeter"_s, u"MeterChange"_s } };
    return names.value(entry);
}

QByteArray WithoutLine(const QByteArray& file, qsizetype line)
{
    QList<QByteArray> lines = file.split('\n');
    lines.removeAt(line);
    return lines.join('\n');
}

} // namespace

MoreClub::MoreClub()
{
    CopyExample(u"ordinary-year"_s);
    Write(last_year, WithoutLine(Read(last_year), 3));
    program.Files.History->Now = [] { return QDateTime({ 2017, 11, 20 }, { 14, 3 }); };
    Start({ 2017, 11, 20 });
    program.Window.Window->show();
    Control<QListWidget>("List1")->setCurrentRow(1);
    Control<QLineEdit>("Text3(5)")->setText(u"2a"_s);
    Control<QPushButton>("Command1(0)")->click();
    Control<QListWidget>("List1")->setCurrentRow(4);
    Control<QLineEdit>("Text1(1)")->setText(u"3000"_s); // below the start
    Control<QPushButton>("Command2")->click();
    Control<QListWidget>("List1")->setCurrentRow(0);
    Boxes.clear();
}

QStringList MoreClub::Entries()
{
    QStringList names;
    for (const MoreEntry& entry : MoreEntries())
        names += entry.name;
    return names;
}

QWidget* MoreClub::Open(const QString& entry)
{
    QMainWindow* window = program.Window.Window;
    Find<QAction>(window, entry)->trigger();
    const QString name = NameOfWindow(entry);
    QWidget* opened = name.isEmpty() ? OpenedReportOf(program, entry.sliced(4))->Window
                                     : Find<QWidget>(window, name);
    for (int i = 0; i < 5; ++i) // layouts settle in several rounds
        QCoreApplication::processEvents();
    return opened;
}

void MoreClub::Close(QWidget* window)
{
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
