// Texts by number: a hash table of views for a report's thousands of names, plots and bookings.
#pragma once

#include <QStringView>

#include <cstdint>
#include <vector>

/// Spreads a text's characters over all bits; the same in every run.
std::size_t SpreadText(QStringView text);

/// Numbers texts in the order in which they come, equal texts alike. Nothing is copied: the texts
/// must outlive it.
class TextNumbers {
public:
    /// Room for so many different texts.
    explicit TextNumbers(std::size_t most);

    /// The text's number; a new text gets the next one. 0 is the first.
    int NumberOf(QStringView text);

    /// The number of a text that came before, -1: none did.
    int Find(QStringView text) const;

    int Count() const { return static_cast<int>(m_texts.size()); }
    QStringView TextOf(int number) const { return m_texts[static_cast<std::size_t>(number)]; }

private:
    std::size_t PlaceOf(QStringView text) const;

    std::vector<std::uint32_t> m_places; ///< numbers from 1, 0: free; a text stands at the first
                                         ///< free place from its own on
    std::vector<QStringView> m_texts; ///< by number
};
