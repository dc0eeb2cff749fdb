#ifndef TESTS_SUPPORT_FILES_H
#define TESTS_SUPPORT_FILES_H

// Files that exist as long as a test runs.
//
//     TemporaryFolder folder;
//     const QString path = folder.Write("report.xml", "<AnyType/>");
//     EXPECT_TRUE(object.LoadXml(path));
//     EXPECT_TRUE(object.SaveXml(folder.Path("other.xml")));
//     EXPECT_BYTES(folder.Read("other.xml"), QByteArray("\n<AnyType/>"));

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace Support {

class TemporaryFolder
{
public:
    TemporaryFolder() { EXPECT_TRUE(m_folder.isValid()) << m_folder.errorString().toStdString(); }

    QString Path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    /// Makes the file and returns its path.
    QString Write(const char* name, const QByteArray& content) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << file.errorString().toStdString();
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }

    QByteArray Read(const char* name) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text)) << file.errorString().toStdString();
        return file.readAll();
    }

    bool Has(const char* name) const { return QFile::exists(Path(name)); }

private:
    QTemporaryDir m_folder;
};

/// A file that is open for reading.
class OpenFile
{
public:
    explicit OpenFile(const QByteArray& content) : m_file(m_folder.Write("opened", content))
    {
        EXPECT_TRUE(m_file.open(QIODevice::ReadOnly));
    }

    QFile* Get() { return &m_file; }
    QString Path() const { return m_file.fileName(); }

private:
    TemporaryFolder m_folder;
    QFile m_file;
};

} // namespace Support

#endif
