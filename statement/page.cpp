#include "statement/page.h"

using namespace Qt::StringLiterals;

namespace {

QString Numbers(int x1, int y1, int x2, int y2)
{
    return u"%1\t%2\t%3\t%4"_s.arg(x1).arg(y1).arg(x2).arg(y2);
}

struct Describe {
    QString operator()(const PageText& text) const
    {
        return QStringList { u"text"_s, text.element, text.text,
            text.right_aligned ? u"right"_s : u"left"_s, QString::number(text.x),
            QString::number(text.y), QString::number(text.point_size), text.bold ? u"1"_s : u"0"_s,
            text.colour == PageColour::DarkRed ? u"192,0,0"_s : u"0,0,0"_s }
            .join(u'\t');
    }
    QString operator()(const PageLine& line) const
    {
        return u"line\t"_s + Numbers(line.x1, line.y1, line.x2, line.y2);
    }
    QString operator()(const PageBox& box) const
    {
        return u"box\t"_s + Numbers(box.x1, box.y1, box.x2, box.y2);
    }

    QString operator()(const PageFill& fill) const
    {
        return u"fill\t"_s + Numbers(fill.x, fill.y, fill.width, fill.height);
    }
};

} // namespace

void AddText(PageItems& page, const QString& element, int x, int y, const QString& text,
    const TextStyle& style)
{
    page.push_back(
        PageText { element, text, x, y, false, style.point_size, style.bold, style.colour });
}

void AddRightAligned(
    PageItems& page, const QString& element, int right_edge, int y, const QString& text)
{
    const TextStyle style;
    page.push_back(PageText {
        element, text, right_edge, y, true, style.point_size, style.bold, style.colour });
}

void AddBox(PageItems& page, int x1, int y1, int x2, int y2)
{
    page.push_back(PageBox { x1, y1, x2, y2 });
}

void AddLine(PageItems& page, int x1, int y1, int x2, int y2)
{
    page.push_back(PageLine { x1, y1, x2, y2 });
}

QStringList DescribePage(const PageItems& page)
{
    QStringList lines;
    for (const PageItem& item : page)
        lines += std::visit(Describe {}, item);
    return lines;
}
