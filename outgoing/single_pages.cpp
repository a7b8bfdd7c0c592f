#include "outgoing/single_pages.h"

#include <QLibrary>

#include <qpdf/qpdf-c.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <typename Routine> bool Find(QLibrary& library, const char* name, Routine& routine)
{
    routine = reinterpret_cast<Routine>(library.resolve(name));
    return routine != nullptr;
}

/// The routines of libqpdf that are used here. They are looked up at the first use: the library
/// brings one for encryption, whose loading would make each start of the program a tenth longer.
struct Qpdf {
    decltype(&qpdf_init) Init = nullptr;
    decltype(&qpdf_cleanup) CleanUp = nullptr;
    decltype(&qpdf_silence_errors) SilenceErrors = nullptr;
    decltype(&qpdf_get_error) TakeError = nullptr;
    decltype(&qpdf_set_suppress_warnings) SuppressWarnings = nullptr;
    decltype(&qpdf_set_attempt_recovery) AttemptRecovery = nullptr;
    decltype(&qpdf_read_memory) ReadMemory = nullptr;
    decltype(&qpdf_get_num_pages) PageCount = nullptr;
    decltype(&qpdf_get_page_n) Page = nullptr;
    decltype(&qpdf_update_all_pages_cache) PagesChanged = nullptr;
    decltype(&qpdf_get_root) Root = nullptr;
    decltype(&qpdf_oh_get_key) Value = nullptr;
    decltype(&qpdf_oh_replace_key) SetValue = nullptr;
    decltype(&qpdf_oh_new_integer) NewInteger = nullptr;
    decltype(&qpdf_oh_new_array) NewArray = nullptr;
    decltype(&qpdf_oh_append_item) Append = nullptr;
    decltype(&qpdf_init_write_memory) BeginFile = nullptr;
    decltype(&qpdf_set_stream_data_mode) SetStreamMode = nullptr;
    decltype(&qpdf_set_deterministic_ID) SetIdOfContent = nullptr;
    decltype(&qpdf_write) Write = nullptr;
    decltype(&qpdf_get_buffer) Written = nullptr;
    decltype(&qpdf_get_buffer_length) WrittenLength = nullptr;

    bool FindAll(QLibrary& library)
    {
        return Find(library, "qpdf_init", Init) && Find(library, "qpdf_cleanup", CleanUp)
            && Find(library, "qpdf_silence_errors", SilenceErrors)
            && Find(library, "qpdf_get_error", TakeError)
            && Find(library, "qpdf_set_suppress_warnings", SuppressWarnings)
            && Find(library, "qpdf_set_attempt_recovery", AttemptRecovery)
            && Find(library, "qpdf_read_memory", ReadMemory)
            && Find(library, "qpdf_get_num_pages", PageCount)
            && Find(library, "qpdf_get_page_n", Page)
            && Find(library, "qpdf_update_all_pages_cache", PagesChanged)
            && Find(library, "qpdf_get_root", Root) && Find(library, "qpdf_oh_get_key", Value)
            && Find(library, "qpdf_oh_replace_key", SetValue)
            && Find(library, "qpdf_oh_new_integer", NewInteger)
            && Find(library, "qpdf_oh_new_array", NewArray)
            && Find(library, "qpdf_oh_append_item", Append)
            && Find(library, "qpdf_init_write_memory", BeginFile)
            && Find(library, "qpdf_set_stream_data_mode", SetStreamMode)
            && Find(library, "qpdf_set_deterministic_ID", SetIdOfContent)
            && Find(library, "qpdf_write", Write) && Find(library, "qpdf_get_buffer", Written)
            && Find(library, "qpdf_get_buffer_length", WrittenLength);
    }
};

bool Failed(QPDF_ERROR_CODE code) { return (code & QPDF_ERRORS) != 0; }

/// The document with that page alone; empty when it cannot be written. The writer begins at the
/// list of pages and goes from there, so that what only other pages draw is left out.
QByteArray FileOf(const Qpdf& qpdf, qpdf_data document, qpdf_oh page)
{
    const qpdf_oh pages = qpdf.Value(document, qpdf.Root(document), "/Pages");
    const qpdf_oh only = qpdf.NewArray(document);
    qpdf.Append(document, only, page);
    qpdf.SetValue(document, pages, "/Kids", only);
    qpdf.SetValue(document, pages, "/Count", qpdf.NewInteger(document, 1));
    if (Failed(qpdf.PagesChanged(document)) || Failed(qpdf.BeginFile(document)))
        return {};
    qpdf.SetStreamMode(document, qpdf_s_preserve);
    qpdf.SetIdOfContent(document, QPDF_TRUE);
    if (Failed(qpdf.Write(document)))
        return {};
    return { reinterpret_cast<const char*>(qpdf.Written(document)),
        static_cast<qsizetype>(qpdf.WrittenLength(document)) };
}

} // namespace

std::vector<QByteArray> SinglePages(const QByteArray& pdf)
{
    QLibrary library(u"qpdf"_s, PARZELLO_QPDF_VERSION);
    Qpdf qpdf;
    if (!qpdf.FindAll(library))
        return {};
    const auto clean_up = [&qpdf](qpdf_data data) {
        qpdf.TakeError(data); // else it is written to the terminal
        qpdf.CleanUp(&data);
    };
    const std::unique_ptr<_qpdf_data, decltype(clean_up)> owned(qpdf.Init(), clean_up);
    auto* const document = owned.get();
    qpdf.SilenceErrors(document);
    qpdf.SuppressWarnings(document, QPDF_TRUE);
    qpdf.AttemptRecovery(document, QPDF_FALSE);
    if (Failed(qpdf.ReadMemory(
            document, "", pdf.constData(), static_cast<unsigned long long>(pdf.size()), nullptr)))
        return {};
    const int count = std::max(0, qpdf.PageCount(document)); // -1: its list cannot be read
    std::vector<qpdf_oh> pages(static_cast<std::size_t>(count));
    for (std::size_t page = 0; page < pages.size(); ++page)
        pages[page] = qpdf.Page(document, page);
    std::vector<QByteArray> files;
    for (const qpdf_oh page : pages) {
        files.push_back(FileOf(qpdf, document, page));
        if (files.back().isEmpty())
            return {};
    }
    return files;
}
