// The page's font. Its two faces travel inside the program, so that a bill looks the same on a
// computer that lacks them: the layout stands on their widths.
#pragma once

#include <QFont>

/// Liberation Sans, which has the widths of Arial, without kerning. The first call makes the
/// program's own faces known.
QFont PageFont(bool bold);
