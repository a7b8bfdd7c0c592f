#include "outgoing/bills_folder_form.h"

#include "app/program.h"
#include "data/whole_files.h"

#include <QDir>

using namespace Qt::StringLiterals;

void TellRefused(Program& program, const QString& text, const QString& detail)
{
    MessageBox box;
    box.title = BillsAsPdfTitle;
    box.icon = BoxIcon::Error;
    box.text = text;
    box.detail = detail;
    program.Ask(box);
}

bool FolderIsFit(Program& program, const QString& folder)
{
    if (folder.isEmpty() || !QDir::isAbsolutePath(folder)) {
        TellRefused(program, u"Bitte einen Ordner wählen."_s);
        return false;
    }
    if (LiesIn(folder, program.Files.DataDirectory)) {
        TellRefused(program,
            u"Im Ordner des Programms liegen nur die Daten des Vereins. Bitte "
            "einen anderen Ordner wählen."_s);
        return false;
    }
    if (const SystemError error = MakePrivateFolder(folder)) {
        TellRefused(program,
            u"Der Ordner „%1“ lässt sich nicht benutzen: %2."_s.arg(
                QDir::toNativeSeparators(folder), ReasonOf(error)),
            u"Bitte einen anderen Ordner wählen."_s);
        return false;
    }
    return true;
}

bool MayReplace(Program& program, const QString& folder, const std::vector<BillFile>& files)
{
    const qsizetype existing = CountExisting(folder, files);
    if (existing == 0)
        return true;
    MessageBox box;
    box.title = BillsAsPdfTitle;
    box.icon = BoxIcon::Question;
    box.buttons = BoxButtons::YesNo;
    box.text = existing == 1
        ? u"1 Datei gibt es in diesem Ordner schon. Soll sie ersetzt werden ?"_s
        : u"%1 Dateien gibt es in diesem Ordner schon. Sollen sie ersetzt werden ?"_s.arg(existing);
    return program.Ask(box) == BoxAnswer::Yes;
}
