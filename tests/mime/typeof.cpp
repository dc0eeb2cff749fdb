// Prints the type of each file as QMimeDatabase sees it: "FILE TYPE".

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QMimeDatabase>
#include <QtCore/QMimeType>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QMimeDatabase types;
    for (int i = 1; i < argc; ++i) {
        const QMimeType type = types.mimeTypeForFile(QFile::decodeName(argv[i]));
        std::printf("%s %s\n", argv[i], qPrintable(type.name()));
    }
    return 0;
}
