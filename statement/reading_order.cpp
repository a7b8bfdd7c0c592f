#include "statement/reading_order.h"

#include "statement/page_player.h"

#include <algorithm>

namespace {

/// A text and where it stands.
struct PlacedText {
    int top = 0;
    int left = 0;
    bool black = true;
    const PageText* text = nullptr;
};

PlacedText Placed(const PageText& text)
{
    return { text.y, TextLeft(text), text.colour == PageColour::Black, &text };
}

bool IsReadBefore(const PlacedText& a, const PlacedText& b)
{
    if (a.top != b.top)
        return a.top < b.top;
    if (a.left != b.left)
        return a.left < b.left;
    return !a.black && b.black;
}

} // namespace

PageItems InReadingOrder(const PageItems* fixed, const PageItems& member)
{
    PageItems ordered;
    std::vector<PlacedText> texts;
    for (const PageItems* items : { fixed, &member }) {
        if (items == nullptr)
            continue;
        for (const PageItem& item : *items) {
            if (const auto* text = std::get_if<PageText>(&item))
                texts.push_back(Placed(*text));
            else
                ordered.push_back(item);
        }
    }
    std::stable_sort(texts.begin(), texts.end(), IsReadBefore);
    for (const PlacedText& placed : texts)
        ordered.emplace_back(*placed.text);
    return ordered;
}
