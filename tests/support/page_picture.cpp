#include "tests/support/page_picture.h"

#include "statement/page_player.h"
#include "statement/statement_pages.h"

#include <QPainter>

QImage PagePicture(const StatementState& statement, qsizetype page, double scale)
{
    QImage image(qRound(PageWidth * scale), qRound(PageHeight * scale), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const PageContents contents = ContentsOfPage(statement, page);
    for (const PageItems* items : { contents.fixed, &contents.member }) {
        if (items != nullptr)
            PlayPage(painter, *items, scale);
    }
    return image;
}
