#include <reportcore/linting/linting.h>

#include <reportcore/inspect/binaryinspector.h>

#include <reportgenerator/reportbase/irgobject.h>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

/// Whether the data hold all that they are to hold without their last bytes.
bool AreWholeWithout(qint64 count, const FileRange& data)
{
    FileRange rest = data;
    return count < data.Size() &&
           !IRGObject::UncompressBinary(rest.Take(data.Size() - count).Bytes()).isEmpty();
}

/// How many bytes could be left out. There are few, if there are any.
qint64 CountDataBehind(const FileRange& data)
{
    qint64 fewest = 0;
    qint64 tooMany = 1;
    while (AreWholeWithout(tooMany, data)) {
        fewest = tooMany;
        tooMany *= 2;
    }
    while (tooMany - fewest > 1) {
        const qint64 middle = fewest + (tooMany - fewest) / 2;
        (AreWholeWithout(middle, data) ? fewest : tooMany) = middle;
    }
    return fewest;
}

} // namespace

Problems FindDataBehind(const QByteArray& bytes, bool isBinaryFile)
{
    const FileRange data = CompressedData(bytes, isBinaryFile);
    const qint64 count = CountDataBehind(data);
    if (count == 0)
        return {};
    return {{QLatin1String(TRAILING_DATA),
             QStringLiteral("%1 bytes behind the end of the zlib data").arg(count),
             FilePlace{0, 0, data.Offset() + data.Size() - count}}};
}

} // namespace ReportCore
