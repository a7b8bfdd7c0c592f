#include "controls/fields.h"

#include "controls/events.h"
#include "controls/outline.h"
#include "controls/roomy_rows.h"
#include "data/ansi_text.h"
#include "data/german_numbers.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QToolTip>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr char tint_property[] = "tint";
constexpr char own_tool_tip_property[] = "own_tool_tip";
constexpr char first_click_property[] = "first_click";
constexpr char read_only_property[] = "looks_read_only";
constexpr int text_margin = 14; // frame and inner margins of a line edit, left and right

/// The first character that the files cannot hold, and what stands in for it; empty when all can.
QString ReplacementNote(const QString& typed)
{
    const QList<uint> characters = typed.normalized(QString::NormalizationForm_C).toUcs4();
    for (const uint code : characters) {
        const char32_t character_code = code;
        const QString character = QString::fromUcs4(&character_code, 1);
        const bool ends_lines = QChar::category(code) == QChar::Other_Control
            || QChar::category(code) == QChar::Separator_Line
            || QChar::category(code) == QChar::Separator_Paragraph;
        const QString stored = AsStored(character);
        if (stored != character && !ends_lines)
            return u"„%1“ kann nicht gespeichert werden, dafür steht hier „%2“."_s.arg(
                character, stored);
    }
    return {};
}

/// Ends with the next press or after a while, as tool tips do.
void NoteReplacement(QLineEdit* field, const QString& typed)
{
    const QString note = ReplacementNote(typed);
    if (!note.isEmpty())
        QToolTip::showText(field->mapToGlobal(QPoint(0, field->height())), note, field);
}

/// The same typed text with the caret at the same place counted from the end, which is where the
/// user is typing.
void ShowAsStored(QLineEdit* field, const QString& typed)
{
    const QString stored = AsStored(typed);
    if (stored == typed)
        return;
    const qsizetype behind_caret = typed.size() - field->cursorPosition();
    field->setText(stored);
    field->setCursorPosition(static_cast<int>(stored.size() - behind_caret));
    NoteReplacement(field, typed);
}

/// A click into a field that has the focus already sets the caret as ever.
void SelectWholeOnFocus(QLineEdit* field)
{
    HookEvent(field, QEvent::FocusIn, [field](QEvent& event) {
        const Qt::FocusReason reason = static_cast<QFocusEvent&>(event).reason();
        if (reason == Qt::MouseFocusReason)
            field->setProperty(first_click_property, true);
        else if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            field->selectAll();
        return false;
    });
    HookEvent(field, QEvent::MouseButtonRelease, [field](QEvent&) {
        if (field->property(first_click_property).toBool() && !field->hasSelectedText())
            field->selectAll();
        field->setProperty(first_click_property, {});
        return false;
    });
}

void TintWhenNoNumber(QLineEdit* field)
{
    const bool wrong = !field->text().isEmpty() && !IsNumber(field->text());
    if (wrong)
        Tint(field, TintKind::Wrong, u"Hier wird eine Zahl erwartet, zum Beispiel 12,50"_s);
    else if (TintOf(field) == TintKind::Wrong)
        Tint(field, TintKind::None);
}

QColor TintColour(TintKind kind)
{
    switch (kind) {
    case TintKind::None:
        break;
    case TintKind::Unsaved:
        return QColor(0xf2, 0xc1, 0x2e);
    case TintKind::Wrong:
        return QColor(0xe0, 0x4f, 0x4f);
    case TintKind::OtherYear:
        return QColor(0x3d, 0x8e, 0xc9);
    case TintKind::Doubtful:
        return QColor(0xe8, 0x7d, 0x1e);
    }
    return {};
}

QColor Blend(const QColor& ground, const QColor& colour)
{
    constexpr int share
        = 28; // percent of the colour: visible on white and on black, and text stays readable
    const auto mix = [](int a, int b) { return (a * (100 - share) + b * share) / 100; };
    return { mix(ground.red(), colour.red()), mix(ground.green(), colour.green()),
        mix(ground.blue(), colour.blue()) };
}

/// The palette of a control that is not tinted.
QPalette OwnPalette(const QWidget* control)
{
    QPalette palette;
    if (control->property(read_only_property).toBool())
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    return palette;
}

} // namespace

QLineEdit* MakeField(QWidget* parent, FieldKind kind, int characters,
    const QString& accessible_name, const QString& unit)
{
    auto* field = new QLineEdit(parent);
    field->setAccessibleName(accessible_name);
    field->setAccessibleDescription(unit);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * characters + text_margin);
    if (kind == FieldKind::Amount) {
        field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        QObject::connect(
            field, &QLineEdit::textChanged, field, [field] { TintWhenNoNumber(field); });
        SelectWholeOnFocus(field);
    }
    if (kind == FieldKind::DisplayOnly) {
        field->setReadOnly(true);
        LookReadOnly(field);
        field->setFocusPolicy(Qt::NoFocus);
        field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    QObject::connect(field, &QLineEdit::textEdited, field,
        [field](const QString& typed) { ShowAsStored(field, typed); });
    return field;
}

QLineEdit* KeepNarrow(QLineEdit* field)
{
    field->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    field->setMaximumWidth(field->minimumWidth());
    return field;
}

QLabel* MakeCaption(QWidget* parent, const QString& text, QWidget* field)
{
    auto* caption = new QLabel(text, parent);
    caption->setTextFormat(Qt::PlainText);
    caption->setBuddy(field);
    return caption;
}

void LookReadOnly(QWidget* control)
{
    control->setProperty(read_only_property, true);
    control->setPalette(OwnPalette(control));
}

void Tint(QWidget* field, TintKind kind, const QString& tool_tip)
{
    if (TintOf(field) == TintKind::None && kind != TintKind::None)
        field->setProperty(own_tool_tip_property, field->toolTip());
    if (kind == TintKind::None) {
        if (TintOf(field) == TintKind::None)
            return;
        field->setProperty(tint_property, {});
        field->setPalette(OwnPalette(field));
        field->setToolTip(field->property(own_tool_tip_property).toString());
        return;
    }
    QPalette palette;
    for (const QPalette::ColorRole ground : { QPalette::Base, QPalette::Button })
        palette.setColor(ground, Blend(palette.color(ground), TintColour(kind)));
    field->setPalette(palette);
    field->setProperty(tint_property, static_cast<int>(kind));
    field->setToolTip(tool_tip);
}

QColor TintedGround(const QWidget* widget, TintKind kind)
{
    const QColor ground = widget->palette().color(QPalette::Base);
    return kind == TintKind::None ? ground : Blend(ground, TintColour(kind));
}

void ShareOneLine(const std::vector<QLineEdit*>& fields, qsizetype longest_line)
{
    for (QLineEdit* typed : fields) {
        QObject::connect(typed, &QLineEdit::textEdited, typed, [typed, fields, longest_line] {
            qsizetype length = static_cast<qsizetype>(fields.size()) - 1; // the separators
            for (const QLineEdit* field : fields)
                length += field->text().size();
            if (length > longest_line)
                typed->setText(
                    typed->text().chopped(qMin(typed->text().size(), length - longest_line)));
        });
    }
}

TintKind TintOf(const QWidget* field)
{
    return static_cast<TintKind>(field->property(tint_property).toInt());
}

QPushButton* MakeButton(QWidget* parent, const QString& caption, const QString& tool_tip)
{
    auto* button = new QPushButton(caption, parent);
    button->setToolTip(tool_tip);
    button->setAutoDefault(true);
    // Two letters of room on both sides: the style's own leave none at large fonts.
    button->setMinimumWidth(std::max(
        button->sizeHint().width(), button->fontMetrics().horizontalAdvance(caption + u"nnnn"_s)));
    return button;
}

void MakePrimary(QPushButton* button)
{
    button->setAutoDefault(false); // such a button loses its looks with the focus
    button->setDefault(true);
}

void MakeRowsRoomy(QAbstractItemView* list) { list->setItemDelegate(new RoomyRows(list)); }

void KeepOutlineClear(QWidget* control)
{
    QPalette palette;
    ClearOutline(palette, control->palette());
    control->setPalette(palette);
}
