#include "controls/search_line.h"

#include "controls/fields.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

SearchLine MakeSearchLine(QWidget* parent, const QString& name, const QString& accessible_name,
    const QString& placeholder)
{
    SearchLine line;
    line.Row = new QWidget(parent);
    line.Words = Named(MakeField(line.Row, FieldKind::Text, 12, accessible_name), name);
    line.Words->setPlaceholderText(placeholder);
    line.Hits = Named(new QLabel(line.Row), name + u"Hits"_s);
    line.Hits->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout(line.Row);
    row->setContentsMargins({});
    row->setSpacing(FrameSpacing);
    row->addWidget(line.Words, 1);
    row->addWidget(line.Hits);
    line.Row->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // the room is the list's
    line.Row->hide();
    return line;
}

void OpenSearchLine(const SearchLine& line)
{
    line.Row->show();
    line.Words->setFocus(Qt::ShortcutFocusReason);
    line.Words->selectAll();
}

int NextHit(int current, int direction, qsizetype count)
{
    if (count == 0)
        return -1;
    const auto hits = static_cast<int>(count);
    return (current + direction + hits) % hits;
}
