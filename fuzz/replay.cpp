// Runs one harness over every file of its corpus folder, without libFuzzer: each seed and each
// finding of the past is a test of the ordinary build.
#include "fuzz/fuzz.h"

#include <QDirIterator>
#include <QFile>
#include <QStringList>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    QStringList paths;
    for (QDirIterator files(QString::fromLocal8Bit(argv[1]), QDir::Files); files.hasNext();)
        paths += files.next();
    paths.sort();
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read\n", qPrintable(path));
            return 1;
        }
        std::printf("%s\n", qPrintable(path)); // the last line names the input that failed
        std::fflush(stdout);
        const QByteArray input = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
            static_cast<std::size_t>(input.size()));
    }
    std::printf("%lld inputs replayed\n", static_cast<long long>(paths.size()));
    return paths.isEmpty() ? 1 : 0; // a corpus that was not found proves nothing
}
