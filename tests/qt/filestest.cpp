#include "support/bytes.h"
#include "support/expect.h"
#include "support/points.h"

#include <reportgenerator/qt/files.h>
#include <reportgenerator/reportbase/ellipse.h>

#include <gtest/gtest.h>

#include <QtCore/QTemporaryDir>

namespace {

using REPORTGENERATOR::Area;
using REPORTGENERATOR::Ellipse;
using REPORTGENERATOR::FileForm;
using REPORTGENERATOR::Frequency;
using REPORTGENERATOR::LoadFile;
using REPORTGENERATOR::LoadReport;
using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::SaveFile;
using Support::Bytes;
using Support::Text;

class QtFiles : public testing::Test
{
protected:
    QString Path(const char* name = "file") const { return m_folder.filePath(Text(name)); }

    void Write(const QByteArray& bytes) const
    {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray Content() const
    {
        QFile file(Path());
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    QStringList FilesThatAreThere() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    }

    /// The message about the file, with its path in place of "%1".
    QString About(const char* text) const { return Text(text).arg(Path()); }

private:
    QTemporaryDir m_folder;
};

ReportBase OneHertz()
{
    ReportBase report;
    report.GetFrequency().SetValue(1.0);
    return report;
}

const char* const XML = "\n<ReportBase>\n    <Frequency>1.00</Frequency>\n</ReportBase>";

Bytes Elements()
{
    return Support::Element(0xcf452ada, Support::Element(0x8aff57b3, Support::ByteArray("1.00")));
}

Bytes Plain()
{
    return Support::Representation(u"ReportBase", Elements());
}

Bytes Compressed()
{
    return Support::CompressedRepresentation(u"ReportBase", Elements());
}

} // namespace

// --- Loading

TEST_F(QtFiles, ReportsAreLoadedFromEveryForm)
{
    const Bytes forms[] = {Support::Raw(XML), Plain(), Compressed(), Support::BinaryFile(Plain()),
                           Support::BinaryFile(Compressed())};
    for (const Bytes& form : forms) {
        Write(form.Data());
        EXPECT_TRUE(LoadReport(Path()) == OneHertz()) << form.Annotated();
    }
}

TEST_F(QtFiles, XmlIsTakenInItsOwnEncodingAndWithinOtherElements)
{
    Write(QByteArray(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a><Area Version=\"1.0\"><Name>Z\xfcrich</Name>"
        "<Coordinate><Longitude>1</Longitude><Latitude>2</Latitude></Coordinate></Area></a>"));
    Area area;
    LoadFile(area, Path());
    EXPECT_TEXT(area.GetName(), "Z\u00fcrich");
}

TEST_F(QtFiles, EmptyReportsAreLoadedToo)
{
    const Bytes forms[] = {Support::Raw("<ReportBase/>"), Support::Representation(u"ReportBase", Bytes()),
                           Support::CompressedRepresentation(u"ReportBase", Bytes()),
                           Support::BinaryFile(Support::CompressedRepresentation(u"ReportBase", Bytes()))};
    for (const Bytes& form : forms) {
        Write(form.Data());
        EXPECT_TRUE(LoadReport(Path()) == ReportBase()) << form.Annotated();
    }
}

TEST_F(QtFiles, WhatWasThereBeforeIsGone)
{
    ReportBase report;
    report.SetArea(Support::Lake());
    for (const Bytes& form : {Support::Raw(XML), Plain(), Support::BinaryFile(Plain())}) {
        Write(form.Data());
        LoadFile(report, Path());
        EXPECT_TRUE(report == OneHertz());
    }
}

TEST_F(QtFiles, AFileThatCannotBeOpenedLeavesTheObjectAlone)
{
    ReportBase report = OneHertz();
    EXPECT_RG_THROW(LoadFile(report, Path("missing")), "RGException",
                    Text("Can't open file for reading: '%1'").arg(Path("missing")));
    EXPECT_TRUE(report == OneHertz());
    EXPECT_RG_THROW(LoadReport(Path("missing")), "RGException",
                    Text("Can't open file for reading: '%1'").arg(Path("missing")));
}

TEST_F(QtFiles, XmlWithoutTheElementIsRefused)
{
    Write("<Report/>");
    EXPECT_RG_THROW(LoadReport(Path()), "RGException", About("'%1' holds no ReportBase"));
}

TEST_F(QtFiles, MalformedXmlIsRefused)
{
    Write("<ReportBase><Frequency>");
    EXPECT_RG_THROW(LoadReport(Path()), "RGException", "Premature end of document.");
    Write("");
    EXPECT_RG_THROW(LoadReport(Path()), "RGException", "Premature end of document.");
}

TEST_F(QtFiles, DamagedBinaryFormsAreRefused)
{
    const QByteArray plain = Plain().Data();
    const QByteArray compressed = Compressed().Data();
    const Bytes name = Support::String(u"ReportBase");
    const QByteArray rows[] = {
        // Cut off behind the marker, behind the name, in the root element's head.
        Support::String(u"IRGObject").Data(),
        (Support::String(u"IRGObject") + name).Data(),
        (Support::String(u"IRGObject") + name + Support::Int32(1)).Data(),
        // Compressed data that aren't there, are null, or damaged.
        (Support::String(u"IRGObjectQCompress") + name).Data(),
        (Support::String(u"IRGObjectQCompress") + name + Support::NullByteArray()).Data(),
        (Support::String(u"IRGObjectQCompress") + name + Support::ByteArray("damaged data")).Data(),
        compressed.left(compressed.size() - 10),
        // A root element that ends within a field.
        plain.left(plain.size() - 1),
        // A binary file whose byte array is cut off.
        Support::BinaryFile(Plain()).Data().left(plain.size()),
    };
    for (const QByteArray& row : rows) {
        Write(row);
        EXPECT_RG_THROW(LoadReport(Path()), "RGException", About("'%1' is damaged or holds no ReportBase"));
    }
}

TEST_F(QtFiles, WrongLengthsInBinaryFormsAreRefused)
{
    for (const int length : {Elements().Size() - 1, -1}) {
        Write(Support::RepresentationOfLength(u"ReportBase", length, Elements()).Data());
        EXPECT_RG_THROW(
            LoadReport(Path()), "BinaryParsingException",
            "ReportBase::SetBinary(...): Length error occurred during processing of binary representation");
    }
}

TEST_F(QtFiles, BinaryFormsOfOtherObjectsAreRefused)
{
    Write(Support::Representation(u"Frequency", Support::Element(0x8aff57b3, Support::ByteArray("1.00")))
              .Data());
    EXPECT_RG_THROW(LoadReport(Path()), "RGException", About("'%1' is damaged or holds no ReportBase"));
    Frequency frequency;
    LoadFile(frequency, Path());
    EXPECT_EQ(frequency.GetValue(), 1.0);
}

TEST_F(QtFiles, ReportsAreCheckedUnlessTheyDoNotValidate)
{
    const Bytes noValue =
        Support::Element(0xcf452ada, Support::Element(0x4ecb4e58, Support::ByteArray("1.00")));
    const Bytes plain = Support::Representation(u"ReportBase", noValue);
    for (const Bytes& form : {plain, Support::BinaryFile(plain)}) {
        Write(form.Data());
        EXPECT_RG_THROW(LoadReport(Path()), "OutOfRangeException", "Frequency: Please set Value properly.");
        ReportBase report;
        report.SetValidate(false);
        LoadFile(report, Path());
        EXPECT_EQ(std::as_const(report).GetFrequency().GetMin(), 1.0);
    }
}

TEST_F(QtFiles, ObjectsWithoutBinaryFormsAreLoadedFromXml)
{
    Write("<Ellipse><MinRadius>1</MinRadius><MaxRadius>2</MaxRadius><Rotation>3</Rotation></Ellipse>");
    Ellipse ellipse;
    LoadFile(ellipse, Path());
    EXPECT_EQ(ellipse.GetRotation(), 3.0);
}

// --- Saving

TEST_F(QtFiles, EveryFormIsWritten)
{
    SaveFile(OneHertz(), Path());
#ifdef Q_OS_WIN
    EXPECT_BYTES(Content(), QByteArray(XML).replace("\n", "\r\n"));
#else
    EXPECT_BYTES(Content(), QByteArray(XML));
#endif
    SaveFile(OneHertz(), Path(), FileForm::Plain);
    EXPECT_BYTES(Content(), Plain());

    const QByteArray head = (Support::String(u"IRGObjectQCompress") + Support::String(u"ReportBase")).Data();
    SaveFile(OneHertz(), Path(), FileForm::Compressed);
    const QByteArray compressed = Content();
    EXPECT_BYTES(compressed.left(head.size()), head);
    SaveFile(OneHertz(), Path(), FileForm::Binary);
    EXPECT_BYTES(Content(), Support::ByteArrayOf(Support::Raw(compressed.toStdString())));
}

TEST_F(QtFiles, EveryFormIsLoadedAgain)
{
    for (const FileForm form : {FileForm::Xml, FileForm::Plain, FileForm::Compressed, FileForm::Binary}) {
        SaveFile(OneHertz(), Path(), form);
        EXPECT_TRUE(LoadReport(Path()) == OneHertz());
    }
}

TEST_F(QtFiles, AnIncompleteObjectLeavesTheOldFile)
{
    Write("old");
    ReportBase incomplete;
    incomplete.GetFrequency();
    for (const FileForm form : {FileForm::Xml, FileForm::Plain, FileForm::Compressed, FileForm::Binary}) {
        EXPECT_RG_THROW(SaveFile(incomplete, Path(), form), "OutOfRangeException",
                        "Frequency: Please set Value properly.");
        EXPECT_BYTES(Content(), QByteArray("old"));
    }
    EXPECT_EQ(FilesThatAreThere(), QStringList(Text("file")));
}

TEST_F(QtFiles, AnObjectThatWritesNothingLeavesTheOldFile)
{
    Write("old");
    EXPECT_RG_THROW(SaveFile(Ellipse(), Path()), "RGException", "Ellipse: there is nothing to write");
    EXPECT_RG_THROW(SaveFile(Ellipse(), Path(), FileForm::Plain), "RGException",
                    "GetBinary is not implemented for object of type 80.");
    EXPECT_BYTES(Content(), QByteArray("old"));
}

TEST_F(QtFiles, AFileThatCannotBeWrittenIsTold)
{
    const QString path = Path("missing/file");
    try {
        SaveFile(OneHertz(), path);
        FAIL() << "written";
    } catch (const RGException& exception) {
        EXPECT_TRUE(exception.GetErrorText().startsWith(Text("Can't write '%1': ").arg(path)))
            << exception.GetErrorText().toStdString();
        EXPECT_GT(exception.GetErrorText().size(), Text("Can't write '%1': ").arg(path).size());
    }
}
