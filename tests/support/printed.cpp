#include "tests/support/printed.h"

#include "statement/page.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

QByteArray Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

QString Unescaped(QString text)
{
    return text.replace(u"&lt;"_s, u"<"_s)
        .replace(u"&gt;"_s, u">"_s)
        .replace(u"&quot;"_s, u"\""_s)
        .replace(u"&apos;"_s, u"'"_s)
        .replace(u"&amp;"_s, u"&"_s);
}

bool IsDark(const QImage& image, int x, int y) { return qGray(image.pixel(x, y)) < 128; }

bool DarkNearby(const QImage& image, int x, int y, int distance)
{
    for (int j = qMax(0, y - distance); j <= qMin(image.height() - 1, y + distance); ++j) {
        for (int i = qMax(0, x - distance); i <= qMin(image.width() - 1, x + distance); ++i) {
            if (IsDark(image, i, j))
                return true;
        }
    }
    return false;
}

} // namespace

QVector<PrintedWord> WordsOfPdf(const QString& path)
{
    static const QRegularExpression page_start(u"<page width=\"([0-9.]+)\""_s);
    static const QRegularExpression word_line(
        u"<word xMin=\"([0-9.-]+)\" yMin=\"([0-9.-]+)\" xMax=\"([0-9.-]+)\" yMax=\"[0-9.-]+\">"
        "(.*)</word>"_s);
    QVector<PrintedWord> words;
    int page = -1;
    double scale = 1.0;
    const QString answer = QString::fromUtf8(Run(u"pdftotext"_s, { u"-bbox"_s, path, u"-"_s }));
    for (const QString& line : answer.split(u'\n')) {
        if (const auto start = page_start.match(line); start.hasMatch()) {
            ++page;
            scale = PageWidth / start.captured(1).toDouble();
        }
        if (const auto word = word_line.match(line); word.hasMatch())
            words += { page, Unescaped(word.captured(4)), word.captured(1).toDouble() * scale,
                word.captured(3).toDouble() * scale, word.captured(2).toDouble() * scale };
    }
    return words;
}

QString TextOfPdfPage(const QString& path, int page)
{
    const QString number = QString::number(page + 1);
    return QString::fromUtf8(
        Run(u"pdftotext"_s, { u"-layout"_s, u"-f"_s, number, u"-l"_s, number, path, u"-"_s }));
}

int PagesOfPdf(const QString& path)
{
    static const QRegularExpression pages(u"Pages:\\s+(\\d+)"_s);
    return pages.match(QString::fromUtf8(Run(u"pdfinfo"_s, { path }))).captured(1).toInt();
}

QString TitleOfPdf(const QString& path)
{
    static const QRegularExpression title(u"Title:\\s+(.*)"_s);
    return title.match(QString::fromUtf8(Run(u"pdfinfo"_s, { path }))).captured(1);
}

QString PageSizeOfPdf(const QString& path)
{
    static const QRegularExpression size(u"Page size:\\s+(.*)"_s);
    return size.match(QString::fromUtf8(Run(u"pdfinfo"_s, { path }))).captured(1);
}

int DotsPerInchOfPdf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    const QByteArray bytes = file.readAll();
    // The page's drawing is packed; it begins with the step from painter dots to points, and a
    // point is a 72nd of an inch.
    static const QRegularExpression matrix(u"([0-9.]+) 0 0 -[0-9.]+ [0-9.]+ [0-9.]+ cm"_s);
    for (qsizetype at = bytes.indexOf("stream\n"); at >= 0;
         at = bytes.indexOf("stream\n", at + 1)) {
        const QByteArray room(QByteArrayLiteral("\0\1\0\0")); // for so many bytes unpacked
        const QByteArray drawing = qUncompress(room + bytes.mid(at + 7));
        const auto found = matrix.match(QString::fromLatin1(drawing));
        if (found.hasMatch())
            return qRound(72.0 / found.captured(1).toDouble());
    }
    return 0;
}

QImage PictureOfPdf(const QString& path, int page, const QSize& size)
{
    const QTemporaryDir folder;
    const QString number = QString::number(page + 1);
    Run(u"pdftoppm"_s,
        { u"-png"_s, u"-singlefile"_s, u"-f"_s, number, u"-l"_s, number, u"-scale-to-x"_s,
            QString::number(size.width()), u"-scale-to-y"_s, QString::number(size.height()), path,
            folder.filePath(u"page"_s) });
    return QImage(folder.filePath(u"page.png"_s));
}

double InkCoveredBy(const QImage& a, const QImage& b, int distance)
{
    qint64 dark = 0;
    qint64 covered = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (!IsDark(a, x, y))
                continue;
            ++dark;
            covered += DarkNearby(b, x, y, distance) ? 1 : 0;
        }
    }
    return dark == 0 ? 0.0 : static_cast<double>(covered) / static_cast<double>(dark);
}
