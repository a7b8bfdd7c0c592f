// Whether the folder of "Abrechnungen als PDF" is fit for the files; says why not.
#pragma once

#include "outgoing/bill_files.h"

#include <QString>

#include <vector>

struct Program;

inline const QString BillsAsPdfTitle = QStringLiteral("Abrechnungen als PDF");

/// An error box of the dialog.
void TellRefused(Program& program, const QString& text, const QString& detail = {});

/// True when PDFs may be written there; makes a missing folder, which only this user may enter.
bool FolderIsFit(Program& program, const QString& folder);

/// True when no file of these names is there, or they may be replaced.
bool MayReplace(Program& program, const QString& folder, const std::vector<BillFile>& files);
