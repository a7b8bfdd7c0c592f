#include "app/manual_pictures.h"

#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int widest = 640; // pixels, as scripts/build-manual has it
constexpr int body_margin = 12; // of the page's style, left and right
constexpr int narrowest = 120; // narrower, nothing could be seen any more

struct Picture {
    int position = 0; ///< in the document
    QTextImageFormat format;
};

std::vector<Picture> PicturesOf(const QTextDocument& document)
{
    std::vector<Picture> pictures;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat())
                pictures.push_back({ part.fragment().position(), format.toImageFormat() });
        }
    }
    return pictures;
}

/// The picture in double size that lies beside the one of that name.
QString LargePath(const QUrl& url)
{
    QString path = url.toLocalFile();
    return path.replace(u".png"_s, u"@2x.png"_s);
}

/// Qt paints a picture that is scaled by its format coarsely: so it gets one of the right size.
void SetSize(QTextDocument& document, const Picture& picture, int width, double pixel_ratio)
{
    const QUrl url = document.baseUrl().resolved(QUrl(picture.format.name()));
    QImage image(LargePath(url));
    if (!image.isNull()) {
        image = image.scaledToWidth(qRound(width * pixel_ratio), Qt::SmoothTransformation);
        image.setDevicePixelRatio(pixel_ratio);
        document.addResource(QTextDocument::ImageResource, url, image);
    }
    QTextCursor cursor(&document);
    cursor.setPosition(picture.position);
    cursor.setPosition(picture.position + 1, QTextCursor::KeepAnchor);
    QTextImageFormat format = picture.format;
    format.setWidth(width);
    cursor.setCharFormat(format);
}

} // namespace

void FitPictures(QTextBrowser* text)
{
    QTextDocument& document = *text->document();
    const int room
        = text->viewport()->width() - 2 * (body_margin + qRound(document.documentMargin()));
    const int width = qBound(narrowest, room, widest);
    const QTextCursor top = text->cursorForPosition(QPoint(0, 0));
    bool changed = false;
    for (const Picture& picture : PicturesOf(document)) {
        if (qRound(picture.format.width()) == width)
            continue;
        SetSize(document, picture, width, text->devicePixelRatioF());
        changed = true;
    }
    if (changed) {
        QScrollBar* bar = text->verticalScrollBar();
        bar->setValue(bar->value() + text->cursorRect(top).top());
    }
}
