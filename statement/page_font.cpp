#include "statement/page_font.h"

#include <QFontDatabase>
#include <QString>

using namespace Qt::StringLiterals;

// Outside any namespace, as the macro wants it.
static void InitFontResources() { Q_INIT_RESOURCE(page_fonts); } // they lie in a static library

namespace {

/// Added once in the life of the program; what comes of it does not matter where the system has the
/// family too.
bool AddFaces()
{
    InitFontResources();
    const int regular = QFontDatabase::addApplicationFont(u":/page_fonts/regular.ttf"_s);
    const int bold = QFontDatabase::addApplicationFont(u":/page_fonts/bold.ttf"_s);
    return regular >= 0 && bold >= 0;
}

} // namespace

QFont PageFont(bool bold)
{
    [[maybe_unused]] static const bool added = AddFaces();
    QFont font(u"Liberation Sans"_s);
    font.setBold(bold);
    font.setKerning(false);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}
