// Replays a page on a QPainter: the preview on screen and the printer use the same lists and the
// same widths. Every character advances by a whole number of page pixels, so that words and numbers
// fall into the same cells at any resolution.
#pragma once

#include "statement/page.h"

class QPainter;

/// Draws the items with the page's top left corner at the painter's origin. scale is painter units
/// per page pixel: the device pixel ratio on screen, printer dots per page pixel on paper (the
/// painter itself must not be scaled, or texts lose their sharpness). Texts stay texts in a PDF.
void PlayPage(QPainter& painter, const PageItems& items, double scale);

/// Width in page pixels: the sum of the characters' advances, each rounded to whole page pixels at
/// the text's own size, without kerning. Independent of screen and program font.
int TextWidth(const PageText& text);

/// Left end of the text in page pixels, also of a right-aligned one.
int TextLeft(const PageText& text);
