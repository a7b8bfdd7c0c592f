#include "outgoing/bills_as_pdf_form.h"

#include "app/program.h"
#include "controls/fields.h"
#include "controls/frames.h"
#include "history/sent_pages_form.h"
#include "outgoing/bill_contents.h"
#include "outgoing/bills_folder_form.h"
#include "outgoing/single_pages.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int folder_characters = 50;

/// The controls of the dialog.
struct BillsAsPdfForm {
    QDialog* Dialog = nullptr;
    QRadioButton* PerMember = nullptr;
    QRadioButton* InOne = nullptr;
    QLineEdit* Folder = nullptr;
    QPushButton* ChooseFolder = nullptr;
    QPushButton* Create = nullptr;
    QPushButton* Cancel = nullptr; ///< "Abbrechen"; between files it ends the run
    QPushButton* OpenFolder = nullptr;
    QProgressBar* Progress = nullptr;
    QLabel* Result = nullptr;
};

BillsAsPdfForm FormOf(QDialog* dialog)
{
    return { dialog, Find<QRadioButton>(dialog, u"BillsPerMember"_s),
        Find<QRadioButton>(dialog, u"BillsInOne"_s), Find<QLineEdit>(dialog, u"BillsFolder"_s),
        Find<QPushButton>(dialog, u"BillsChooseFolder"_s),
        Find<QPushButton>(dialog, u"BillsCreate"_s), Find<QPushButton>(dialog, u"BillsCancel"_s),
        Find<QPushButton>(dialog, u"BillsOpenFolder"_s),
        Find<QProgressBar>(dialog, u"BillsProgress"_s), Find<QLabel>(dialog, u"BillsResult"_s) };
}

BillSplit SplitOf(const BillsAsPdfForm& form)
{
    if (form.PerMember->isChecked())
        return BillSplit::FilePerMember;
    return form.InOne->isChecked() ? BillSplit::AllInOneFile : BillSplit::ShownPage;
}

QString FilesLie(qsizetype done, const QString& folder)
{
    const QString place = u"im Ordner „%1“."_s.arg(QDir::toNativeSeparators(folder));
    return done == 1 ? u"1 Datei liegt "_s + place : u"%1 Dateien liegen "_s.arg(done) + place;
}

QString WithoutBill(const QStringList& names)
{
    if (names.isEmpty())
        return {};
    const QString who
        = names.size() == 1 ? u"1 Mitglied hat"_s : u"%1 Mitglieder haben"_s.arg(names.size());
    return u'\n' + who + u" keine Rechnung: "_s + names.join(u"; "_s);
}

/// What a run did.
struct RunResult {
    qsizetype Done = 0;
    bool Cancelled = false;
    SystemError Error;
    QString FailedName;
};

bool IsCancelled(const BillsAsPdfForm& form) { return form.Dialog->property("cancelled").toBool(); }

RunResult WriteFiles(Program& program, const BillsAsPdfForm& form, const QString& folder,
    const std::vector<BillFile>& files)
{
    RunResult result;
    BillContents contents(program.Statement, files, form.Dialog, SinglePages);
    form.Progress->setRange(0, static_cast<int>(files.size()));
    for (const BillFile& file : files) {
        form.Progress->setValue(static_cast<int>(result.Done));
        QCoreApplication::processEvents(); // lets "Abbrechen" be pressed
        const QByteArray content = IsCancelled(form) ? QByteArray() : contents.Next();
        if (content.isEmpty()) {
            result.Cancelled = true;
            return result;
        }
        if (const SystemError error = WriteBillFile(folder, file.Name, content)) {
            result.Error = error;
            result.FailedName = file.Name;
            return result;
        }
        ++result.Done;
    }
    form.Progress->setValue(form.Progress->maximum());
    return result;
}

void ShowResult(
    Program& program, const BillsAsPdfForm& form, const RunResult& result, const QString& folder)
{
    const QString lie = FilesLie(result.Done, folder);
    if (result.Error) {
        TellRefused(program,
            u"Die Datei „%1“ lässt sich im Ordner „%2“ nicht schreiben: %3."_s.arg(
                result.FailedName, QDir::toNativeSeparators(folder), ReasonOf(result.Error)),
            lie + u" Bitte Platz schaffen oder einen anderen Ordner wählen."_s);
    }
    form.Result->setText((result.Cancelled ? u"Abgebrochen. "_s : QString()) + lie
        + WithoutBill(MembersWithoutBill(program.Statement, SplitOf(form))));
    form.OpenFolder->setVisible(result.Done > 0);
}

void SetRunning(const BillsAsPdfForm& form, bool running)
{
    form.Dialog->setProperty("running", running);
    form.Dialog->setProperty("cancelled", false);
    form.Create->setEnabled(!running);
    form.Progress->show();
    form.Cancel->setText(running ? u"Abbrechen"_s : u"Schließen"_s);
}

/// The files that were written are bills that went out.
void KeepInHistory(const Program& program, const std::vector<BillFile>& files, qsizetype done)
{
    QList<PageRange> pages;
    for (qsizetype i = 0; i < done; ++i)
        pages += files[static_cast<std::size_t>(i)].Pages;
    KeepSentPages(program, SentHow::Pdf, pages);
}

void CreateFiles(Program& program, const BillsAsPdfForm& form) // BillsCreate
{
    const QString folder = QDir::cleanPath(form.Folder->text().trimmed());
    const std::vector<BillFile> files = BillFilesOf(program.Statement, SplitOf(form));
    form.OpenFolder->hide();
    if (files.empty()) {
        form.Result->setText(u"Es gibt keine Rechnung."_s
            + WithoutBill(MembersWithoutBill(program.Statement, SplitOf(form))));
        return;
    }
    if (!FolderIsFit(program, form.Folder->text().trimmed().isEmpty() ? QString() : folder)
        || !MayReplace(program, folder, files))
        return;
    SetRunning(form, true);
    const RunResult result = WriteFiles(program, form, folder, files);
    KeepInHistory(program, files, result.Done);
    SetRunning(form, false);
    ShowResult(program, form, result, folder);
}

void CancelOrClose(const BillsAsPdfForm& form) // BillsCancel and Escape
{
    if (form.Dialog->property("running").toBool())
        form.Dialog->setProperty("cancelled", true);
    else
        form.Dialog->done(QDialog::Rejected);
}

void ChooseFolder(Program& program, const BillsAsPdfForm& form) // BillsChooseFolder
{
    const QString chosen = program.BillsAsPdf.ChooseFolder(form.Dialog, form.Folder->text());
    if (!chosen.isEmpty())
        form.Folder->setText(QDir::toNativeSeparators(chosen));
}

/// While a run goes on, closing the dialog by any way only ends the run.
class BillsDialog : public QDialog {
public:
    using QDialog::QDialog;
    void reject() override { CancelOrClose(FormOf(this)); }
};

void AddChoices(QDialog* dialog, QGridLayout* grid)
{
    const std::pair<QString, QString> choices[]
        = { { u"je &Mitglied eine Datei"_s, u"BillsPerMember"_s },
              { u"&alle in einer Datei"_s, u"BillsInOne"_s },
              { u"nur die &gezeigte Seite"_s, u"BillsShownPage"_s } };
    for (const auto& [caption, name] : choices) {
        auto* choice = Named(new QRadioButton(caption, dialog), name);
        KeepOutlineClear(choice);
        choice->setChecked(name == u"BillsPerMember"_s);
        grid->addWidget(choice, grid->rowCount(), 0, 1, 3);
    }
}

void AddFolder(const Program& program, QDialog* dialog, QGridLayout* grid)
{
    auto* folder = Named(
        MakeField(dialog, FieldKind::Text, folder_characters, u"Ordner"_s), u"BillsFolder"_s);
    folder->setText(
        QDir::toNativeSeparators(ProposedBillsFolder(program.Statement.Source.YearText)));
    const int row = grid->rowCount();
    grid->addWidget(MakeCaption(dialog, u"&Ordner"_s, folder), row, 0);
    grid->addWidget(folder, row, 1);
    grid->addWidget(Named(MakeButton(dialog, u"&Wählen …"_s), u"BillsChooseFolder"_s), row, 2);
}

void AddResult(QDialog* dialog, QGridLayout* grid)
{
    auto* progress = Named(new QProgressBar(dialog), u"BillsProgress"_s);
    progress->setAccessibleName(u"Fortschritt"_s);
    QSizePolicy keeps_its_place = progress->sizePolicy();
    keeps_its_place.setRetainSizeWhenHidden(true);
    progress->setSizePolicy(keeps_its_place);
    progress->hide(); // empty it looks like a field
    grid->addWidget(progress, grid->rowCount(), 0, 1, 3);
    auto* result = Named(new QLabel(dialog), u"BillsResult"_s);
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(true);
    grid->addWidget(result, grid->rowCount(), 0, 1, 3);
    auto* row = new QHBoxLayout;
    QPushButton* open = Named(MakeButton(dialog, u"Ordner ö&ffnen"_s), u"BillsOpenFolder"_s);
    QPushButton* create = Named(MakeButton(dialog, u"&PDF erstellen"_s), u"BillsCreate"_s);
    create->setDefault(true);
    open->hide();
    row->addWidget(open);
    row->addStretch(1);
    row->addWidget(create);
    row->addWidget(Named(MakeButton(dialog, u"Schließen"_s), u"BillsCancel"_s));
    grid->addLayout(row, grid->rowCount(), 0, 1, 3);
}

void FillSeams(BillsAsPdfSeams& seams)
{
    if (!seams.ChooseFolder) {
        seams.ChooseFolder = [](QWidget* parent, const QString& folder) {
            return QFileDialog::getExistingDirectory(
                parent, u"Ordner für die Abrechnungen"_s, folder);
        };
    }
    if (!seams.OpenFolder) {
        seams.OpenFolder
            = [](const QString& folder) { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); };
    }
}

} // namespace

QString ProposedBillsFolder(const QString& year_text)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).filePath(u"Abrechnungen "_s + year_text);
}

void ShowBillsAsPdf(Program& program)
{
    FillSeams(program.BillsAsPdf);
    auto* dialog = Named(new BillsDialog(program.Window.Window), u"BillsAsPdf"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(BillsAsPdfTitle);
    auto* grid = new QGridLayout(dialog);
    AddChoices(dialog, grid);
    AddFolder(program, dialog, grid);
    AddResult(dialog, grid);
    const BillsAsPdfForm form = FormOf(dialog);
    On(program, form.ChooseFolder, &QPushButton::clicked,
        [form](Program& p) { ChooseFolder(p, form); });
    On(program, form.Create, &QPushButton::clicked, [form](Program& p) { CreateFiles(p, form); });
    On(program, form.Cancel, &QPushButton::clicked, [form](Program&) { CancelOrClose(form); });
    On(program, form.OpenFolder, &QPushButton::clicked, [form](Program& p) {
        p.BillsAsPdf.OpenFolder(QDir::cleanPath(form.Folder->text().trimmed()));
    });
    dialog->open(); // over the window alone; returns at once
}
