#include "history/state_lines.h"

#include "data/ansi_text.h"

QStringList LinesOfState(const QByteArray& content)
{
    QByteArray text = content;
    text.replace("\r\n", "\n");
    if (text.endsWith('\n'))
        text.chop(1);
    return text.isEmpty() && content.isEmpty() ? QStringList()
                                               : DecodeAnsi(text).split(QLatin1Char('\n'));
}
