// A state of a file as lines.
#pragma once

#include <QByteArray>
#include <QStringList>

/// The lines of a state, for showing: ended by CR LF or LF, the last one may lack it.
QStringList LinesOfState(const QByteArray& content);
