// What the operating system answers when a call fails, by name: the same names on every system.
// Which number of a system has which name stands in system_error_….cpp of that system.
#pragma once

#include <QString>

enum class Fault {
    None,
    Missing, ///< no file or folder of that name
    NotAFolder, ///< a part of the path is a file
    NameTooLong,
    NotAFileName, ///< empty, with a separator or with a null character
    NoAccess, ///< the rights of the file or of its folder
    NotPermitted, ///< the system allows it to nobody like this user
    IsAFolder,
    NotARegularFile, ///< a pipe or a device stands where a file should
    IsALink, ///< a link stands where a file or folder of its own is needed
    IsDataDirectory, ///< the backup folder is the folder of the data itself
    NoSpace,
    NoQuota, ///< the space that the user was given is used up
    ReadOnlyMedium,
    BrokenMedium,
    Busy,
    FileInUse,
    NoDevice,
    TooManyOpenFiles,
    TooManyOpenFilesOfAll,
    TooLarge, ///< more than this program takes
    TooLargeForMedium,
    LinkLoop,
    NoMemory,
    InvalidCall,
    AlreadyThere,
    WrittenOtherwise, ///< what is read back is not what was written
    Unnamed, ///< any other
};

struct SystemError {
    Fault Kind = Fault::None;
    int Number = 0; ///< only for Fault::Unnamed: the system's own number, for the message

    SystemError() = default;
    SystemError(Fault kind, int number = 0) // so that a routine may return a Fault
        : Kind(kind)
        , Number(number)
    {
    }
    explicit operator bool() const { return Kind != Fault::None; }
    bool operator==(const SystemError&) const = default;
};

/// German wording of an error ("Keine Berechtigung"), also where the system has no German locale.
QString ReasonOf(const SystemError& error);

/// True for the errors that only say that nothing of that name is there.
bool MeansMissing(const SystemError& error);
