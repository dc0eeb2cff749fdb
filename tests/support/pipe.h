#ifndef TESTS_SUPPORT_PIPE_H
#define TESTS_SUPPORT_PIPE_H

// A file that behaves as a pipe does: it is read from front to back and never says how much is to come.
//
//     Pipe pipe(bytes);
//     QDataStream stream(&pipe);
//     EXPECT_TRUE(object.SetBinaryRepresentation(stream));

#include "support/files.h"

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>

namespace Support {

class Pipe : private TemporaryFolder, public QFile
{
public:
    explicit Pipe(const QByteArray& content) : QFile(TemporaryFolder::Write("pipe", content))
    {
        EXPECT_TRUE(open(QIODevice::ReadOnly));
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return 0; }
};

} // namespace Support

#endif
