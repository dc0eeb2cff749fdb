// Runs a target over files, without a fuzzer: what was found once stays right with every compiler.
//
//     fuzz_xml_string FOLDER...

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int Replay(const QDir& folder)
{
    int files = 0;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
            std::exit(EXIT_FAILURE);
        }
        // The name stands last if this is the file that ends the process.
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        const QByteArray data = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(data.constData()),
                               static_cast<std::size_t>(data.size()));
        ++files;
    }
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    int files = 0;
    for (int i = 1; i < argc; ++i)
        files += Replay(QDir(QString::fromLocal8Bit(argv[i])));
    std::printf("%d files\n", files);
    return files > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
