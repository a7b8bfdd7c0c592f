// The one kind of error that plain routines throw, and the German sentence that tells the treasurer
// where it happened and what helps. Showing it is the business of controls/error_box.
#pragma once

#include <QString>

enum class ErrorKind {
    Overflow = 6, ///< a number leaves its range, or a list grows past 32,767 entries
    SubscriptOutOfRange = 9, ///< a record or list is shorter than what is asked of it
    TypeMismatch = 13, ///< a text is no number
    InvalidIndex = 381, ///< position -1 in a list
    File
    = 0, ///< the operating system refused a file; its German reason stands in RuntimeError::reason
};

/// Where an error happened. Empty texts and line 0 are left out of the sentence.
struct Place {
    QString file; ///< file name without its folder, e.g. Mitgliedsdaten2016.pz
    int line = 0; ///< 1 is the first line of the file
    QString member; ///< as in the name list: surname, comma, first name
    QString field; ///< caption of the field or the key of the setting
    QString content; ///< the text that was found there, if it helps
    QString remedy; ///< a whole German sentence that says what to do
};

struct RuntimeError {
    ErrorKind kind = ErrorKind::TypeMismatch;
    Place where;
    QString reason; ///< only for ErrorKind::File: the operating system's reason in German
};

/// First paragraph of the box: "Laufzeitfehler 13: Typen unverträglich" and the like; for a file
/// error the reason.
QString ErrorHeadline(const RuntimeError& error);

/// Second paragraph: one sentence that names file, line, member and field, followed by the remedy.
QString ErrorSentence(const RuntimeError& error);

/// One more sentence behind or in front of the error's remedy.
void AppendToRemedy(RuntimeError& error, const QString& sentence);
void PrependToRemedy(RuntimeError& error, const QString& sentence);

/// Runs the routine; what it throws says the sentence in front of its remedy. For what a failure
/// means to the caller, which the routine cannot know.
template <typename Routine> auto WithConsequence(const QString& sentence, Routine routine)
{
    try {
        return routine();
    } catch (RuntimeError& error) {
        PrependToRemedy(error, sentence);
        throw;
    }
}
