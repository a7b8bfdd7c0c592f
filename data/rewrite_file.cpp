#include "data/rewrite_file.h"

#include "data/history.h"
#include "data/redo_record.h"
#include "data/whole_files.h"

#include <optional>

namespace {

/// What is to come back when the rewrite fails.
struct OldContent {
    bool known = false; ///< false: it could not be read, so it cannot come back
    bool missing = false; ///< there was no file
    bool noted = false; ///< it stands in the record of an earlier, unfinished rewrite
    HistoryMark mark {}; ///< that of the record
    QByteArray content;
};

SystemError ReadOldContent(const DataFiles& files, const QString& target, OldContent& old)
{
    std::optional<RedoRecord> record;
    if (const SystemError error = FindRewrite(files.StateDirectory, target, record))
        return error; // what the file holds stands in there, and it must not be lost
    old.noted = record.has_value();
    if (record) {
        old.content = record->content;
        old.mark = record->Mark;
    }
    const SystemError error
        = record ? Fault::None : ReadFileBytes(PathOf(files, target), old.content);
    old.missing = error == Fault::Missing;
    old.known = !error || old.missing;
    return Fault::None;
}

SystemError PutBack(
    const DataFiles& files, const QString& target, const OldContent& old, Overwritten done)
{
    if (!old.known)
        return Fault::BrokenMedium;
    if (old.missing)
        return done == Overwritten::Created ? RemoveFile(PathOf(files, target))
                                            : Fault::BrokenMedium;
    return OverwriteFile(PathOf(files, target), old.content, done);
}

const QString not_saved = QStringLiteral("Es wurde nicht gespeichert.");

const QString kept_for_next_start
    = QStringLiteral("Die Datei ließ sich nicht vollständig schreiben. Der neue Stand ist aber "
                     "vorgemerkt und wird beim nächsten Start des Programms eingetragen.");

/// The remedy is about the folder of the records, not about the file's own.
RuntimeError RecordError(
    const DataFiles& files, const QString& target, const SystemError& error, const QString& before)
{
    const DataFiles record_files { files.StateDirectory, files.StateDirectory };
    return FileError(record_files, target, error, FileDeed::Write, before);
}

/// The record could not be written; what there is of it goes, except that it may already have taken
/// the place of an earlier one that must not go.
RuntimeError NotNoted(
    const DataFiles& files, const QString& target, const OldContent& old, const SystemError& error)
{
    if (files.StateDirectory.isEmpty()) {
        return RecordError(files, target, error,
            QStringLiteral("Die Datei ist unverändert: Vor jedem Speichern wird der neue Stand im "
                           "persönlichen Ordner des Benutzers vorgemerkt, und der ist nicht "
                           "bekannt (HOME ist nicht gesetzt)."));
    }
    if (!old.noted)
        ForgetRewrite(files.StateDirectory, target);
    std::optional<RedoRecord> record;
    const SystemError find_error = FindRewrite(files.StateDirectory, target, record);
    if (!old.noted && (record || find_error))
        return RecordError(files, target, error, kept_for_next_start);
    return RecordError(files, target, error,
        QStringLiteral("Die Datei ist unverändert: Vor jedem Speichern wird der neue Stand im "
                       "Ordner „%1“ vorgemerkt, und das ist nicht gelungen.")
            .arg(files.StateDirectory));
}

/// The rewrite has failed after the record was written: back to the old state where that is
/// possible.
RuntimeError Undo(const DataFiles& files, const QString& target, const OldContent& old,
    Overwritten done, const SystemError& error)
{
    const bool is_untouched = done == Overwritten::Nothing && !old.noted;
    const bool is_back = is_untouched || !PutBack(files, target, old, done);
    if (is_back && !ForgetRewrite(files.StateDirectory, target)) {
        return FileError(files, target, error, FileDeed::Write,
            old.missing ? not_saved
                        : QStringLiteral("Es wurde nicht gespeichert, die Datei hat ihren alten "
                                         "Inhalt."));
    }
    return FileError(files, target, error, FileDeed::Write, kept_for_next_start);
}

void CheckTarget(const DataFiles& files, const QString& target, const QByteArray& content)
{
    SystemError error = IsTargetName(target) ? Fault::None : Fault::NotAFileName;
    if (!error && content.size() > LargestContent)
        error = Fault::TooLarge;
    if (!error)
        error = CheckWritable(PathOf(files, target));
    if (error)
        throw FileError(files, target, error, FileDeed::Write, not_saved);
}

/// The file has its content: the record becomes history, or goes where that is not possible.
SystemError GiveUpRecord(const DataFiles& files, const RedoRecord& record)
{
    return KeepRecord(files, record) ? Fault::None
                                     : ForgetRewrite(files.StateDirectory, record.target);
}

/// While a record stands for the file, the file itself holds what the rewrite left that was stopped
/// (a beginning of the content, which nobody made), or what somebody has put there since.
void KeepFileBesideRecord(
    const DataFiles& files, const QString& target, const QByteArray& noted_content)
{
    QByteArray found;
    if (!ReadFileBytes(PathOf(files, target), found) && !noted_content.startsWith(found))
        KeepReplaced(files, target, found);
}

SystemError Finish(const DataFiles& files, const RedoRecord& record)
{
    const QString path = PathOf(files, record.target);
    QByteArray found;
    Overwritten done = Overwritten::Nothing;
    const bool is_there = !ReadFileBytes(path, found) && found == record.content;
    if (!is_there)
        KeepFileBesideRecord(files, record.target, record.content);
    const SystemError error = is_there ? Fault::None : OverwriteFile(path, record.content, done);
    return error ? error : GiveUpRecord(files, record);
}

RuntimeError NotFinished(const DataFiles& files, const QString& target, const SystemError& error)
{
    return FileError(files, target, error, FileDeed::Finish,
        QStringLiteral("Das Speichern dieser Datei war unterbrochen worden. Ihr neuer Stand ist "
                       "vorgemerkt, ließ sich aber noch nicht eintragen; er bleibt vorgemerkt."));
}

RuntimeError NotSearched(const DataFiles& files, const SystemError& error)
{
    return FileError({ files.StateDirectory, files.StateDirectory }, {}, error, FileDeed::Finish,
        QStringLiteral("Im Ordner „%1“ ließ sich nicht nachsehen, ob ein Speichern unterbrochen "
                       "worden ist.")
            .arg(files.StateDirectory));
}

} // namespace

void RewriteFile(const DataFiles& files, const QString& name, const QByteArray& content)
{
    const QString target = NameWithin(name);
    CheckTarget(files, target, content);
    OldContent old;
    if (const SystemError error = ReadOldContent(files, target, old))
        throw RecordError(files, target, error, not_saved);
    if (old.noted)
        KeepFileBesideRecord(files, target, old.content);
    if (old.known && !old.missing)
        KeepReplaced(files, target, old.content, old.mark);
    const RedoRecord record { target, content, NextMark(files) };
    if (const SystemError error = NoteRewrite(files.StateDirectory, record))
        throw NotNoted(files, target, old, error);
    Overwritten done = Overwritten::Nothing;
    if (const SystemError error = OverwriteFile(PathOf(files, target), content, done))
        throw Undo(files, target, old, done, error);
    if (const SystemError error = GiveUpRecord(files, record)) {
        throw RecordError(files, target, error,
            QStringLiteral("Der neue Stand ist gespeichert, nur seine Vormerkung im Ordner „%1“ "
                           "ließ sich nicht löschen.")
                .arg(files.StateDirectory));
    }
}

void FinishRewrites(const DataFiles& files)
{
    QList<RedoRecord> records;
    const SystemError search_error = FindRewrites(files.StateDirectory, records);
    std::optional<RuntimeError> failure;
    for (const RedoRecord& record : records) {
        if (const SystemError error = Finish(files, record))
            failure = NotFinished(files, record.target, error);
    }
    if (failure)
        throw RuntimeError(*failure);
    if (search_error)
        throw NotSearched(files, search_error);
}
