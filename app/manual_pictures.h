// The pictures of the manual, as wide as the text allows.
#pragma once

class QTextBrowser;

/// Makes every picture as wide as it is meant or, in a narrow window, as the text; smoothly scaled.
/// What stood at the top of the text stays there.
void FitPictures(QTextBrowser* text);
