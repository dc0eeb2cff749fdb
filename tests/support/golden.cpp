#include "support/golden.h"

#include "support/vectors.h"

#include <gtest/gtest.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QLatin1String>

namespace Support {

bool CanBeFilled(const AreaState& state)
{
    return state.AreCoordinatesSet() || state.coordinates.empty();
}

bool CanBeFilled(const ReportState& state)
{
    return !state.area || CanBeFilled(*state.area);
}

void ExpectOutcome(const Subject& subject, const Outcome& outcome)
{
    EXPECT_EQ(subject.Description(), outcome.description);
    if (!outcome.equal)
        return;
    const std::unique_ptr<Subject> equal = outcome.equal();
    EXPECT_TRUE(subject.Equals(*equal));
    EXPECT_TRUE(equal->Equals(subject));
}

QByteArray WriteRaw(const Subject& subject)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(STREAM_VERSION);
    subject.WriteRaw(stream);
    return bytes;
}

void ReadRaw(Subject& subject, const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(STREAM_VERSION);
    subject.ReadRaw(stream);
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    EXPECT_TRUE(stream.atEnd());
}

QString InfoLine(const QString& className, const char* text)
{
    return QLatin1String("INFO: ") + className + QLatin1String(text);
}

QStringList LinesOfReadingBytes(const QString& className)
{
    return {InfoLine(className, ": Loading binary representation (source: byte array)."),
            InfoLine(className, ": Loading binary representation (source: data stream).")};
}

void ExpectVectorFiles(const std::set<QString>& named, const std::function<bool(const QString&)>& isMeant)
{
    std::set<QString> present;
    for (const QString& path : VectorFiles()) {
        if (isMeant(path))
            present.insert(path);
    }
    for (const QString& path : named)
        EXPECT_EQ(present.count(path), 1u) << "missing: " << path.toStdString();
    for (const QString& path : present)
        EXPECT_EQ(named.count(path), 1u) << "unused: " << path.toStdString();
}

} // namespace Support
