#ifndef REPORTGENERATOR_IRGOBJECT_H
#define REPORTGENERATOR_IRGOBJECT_H

#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/objecttypes.h>
#include <reportgenerator/reportbase/reportbase_export.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <atomic>
#include <cstdint>
#include <memory>

class QDataStream;
class QDateTime;
class QFile;
class QXmlStreamReader;
class QXmlStreamWriter;
class RGException;

namespace REPORTGENERATOR {

class VersionConverterProxy;
struct ObjectIdentity;

/// Base of every object of a report or of a monitoring task.
///
/// It owns what all objects share: kind, name (which is also the XML element name and the prefix of the
/// object's log lines), id, validate flag, logger and version converter. It fixes the virtual operations
/// through which an object is checked, reset, merged, and written and read in its forms:
///
/// - XML: one element named after the object; read from a string, a file or a path.
/// - plain representation: the marker "IRGObject", the object name, and the object's tagged elements.
/// - compressed representation: the marker "IRGObjectQCompress", the object name, and the elements
///   compressed.
/// - binary file: one serialised `QByteArray` that holds either representation.
///
/// With the validate flag on, which is the default, an object is checked before it is written and after it
/// has been read from XML or from a binary file, and throws when it is incomplete; with the flag off it is
/// written and kept as it stands. Reading a representation and merging check nothing afterwards.
///
/// Errors are `RGException`s, reported by `TraceOrThrow`.
///
/// Threads may use an object as they use a container of Qt's: several may call const operations of one object
/// and copy it at the same time; who changes it has to be alone with it. `SetValidate`, `SetLogger` and
/// `ResetLogger` change it, although they are const, but when they give what is there already. Copies are
/// independent of each other, wherever they go. Loggers and version converters are called by the thread that
/// uses the object and go by their own rules; so does what a derived class adds.
class REPORTBASE_EXPORT IRGObject
{
public:
    /// An object of the kind `AnyType`, validating, without logger and version converter.
    IRGObject();

    /// An object of the given kind (see `SetObjectType`), validating, without logger and version converter.
    explicit IRGObject(ObjectTypes type);

    /// Copies everything; logger and version converter are shared with `other`. (Objects with a record take
    /// neither over.)
    IRGObject(const IRGObject& other);
    IRGObject& operator=(const IRGObject& other);

    // The virtual operations. Other programs call them by their place in the virtual table: keep their order
    // and declare nothing virtual between them. MSVC enters the overloads of one name in the reverse order of
    // their declarations, so that for it each such group is declared the other way round.

    virtual ~IRGObject();

    /// Whether the object holds what it needs to be written.
    virtual bool HasData() const = 0;

    /// Puts every field back to its unset or default value.
    virtual void Reset() = 0;

#ifndef _MSC_VER
    /// As `Check()`. Classes that can go on after a failure take `logOnly` to mean: with a logger attached,
    /// log every failure as an ERROR and throw none. The base ignores the flag.
    virtual void Check(bool logOnly) const;

    /// Throws `RGException` when the object is incomplete or holds a wrong value.
    virtual void Check() const = 0;
#else
    virtual void Check() const = 0;
    virtual void Check(bool logOnly) const;
#endif

#ifndef _MSC_VER
    /// Whether a value is set, which is to say differs from the value of its type that stands for "not set":
    /// -1111111.0 for `float`, 4294967295 for `unsigned int`, -111111 for `int` and `long long`, -111111.11
    /// for `double`, the empty string, the null date-time. A `bool` is always set, and so is a NaN.
    virtual bool IsValid(float value) const;
    virtual bool IsValid(bool value) const;
    virtual bool IsValid(unsigned int value) const;
    virtual bool IsValid(long long value) const;
    virtual bool IsValid(const QDateTime& value) const;
    virtual bool IsValid(const QString& value) const;
    virtual bool IsValid(double value) const;
    virtual bool IsValid(int value) const;
#else
    virtual bool IsValid(int value) const;
    virtual bool IsValid(double value) const;
    virtual bool IsValid(const QString& value) const;
    virtual bool IsValid(const QDateTime& value) const;
    virtual bool IsValid(long long value) const;
    virtual bool IsValid(unsigned int value) const;
    virtual bool IsValid(bool value) const;
    virtual bool IsValid(float value) const;
#endif

#ifndef _MSC_VER
    /// Stores the value that stands for "not set". There is none for `bool` and `QDateTime`.
    virtual void SetInvalid(float& value) const;
    virtual void SetInvalid(unsigned int& value) const;
    virtual void SetInvalid(long long& value) const;
    virtual void SetInvalid(QString& value) const;
    virtual void SetInvalid(double& value) const;
    virtual void SetInvalid(int& value) const;
#else
    virtual void SetInvalid(int& value) const;
    virtual void SetInvalid(double& value) const;
    virtual void SetInvalid(QString& value) const;
    virtual void SetInvalid(long long& value) const;
    virtual void SetInvalid(unsigned int& value) const;
    virtual void SetInvalid(float& value) const;
#endif

    /// Writes the object's element.
    virtual void GetXml(QXmlStreamWriter& writer) const = 0;

    /// Writes the object's body: `tag` if `withTag` is true, the length in bytes, the elements. The stream's
    /// device must be random-access. Returns whether the body was written.
    ///
    /// Classes without a binary form throw `RGException` ("GetBinary is not implemented for object of type
    /// %1.") when validating; otherwise they write nothing and return true.
    virtual bool GetBinary(QDataStream& stream, int tag, bool withTag) const;

    /// Reads the elements of a body of `length` bytes; tag and length have been read by the caller. Unknown
    /// elements are skipped. Throws an `RGException` named "BinaryParsingException" when the lengths don't
    /// come out.
    ///
    /// Classes without a binary form throw `RGException` ("SetBinary is not implemented for object of type
    /// %1.") when validating; otherwise they read nothing.
    virtual void SetBinary(QDataStream& stream, int length);

    /// Reads the object from its element in `xml`: from the first one found anywhere in the text, or, with
    /// `checkRoot`, from the root element only. Traces INFO.
    ///
    /// Returns false, with the object untouched, when `xml` is empty or holds nothing like a start tag that
    /// begins with the object's name, comments included. Otherwise the object is reset first, and the result
    /// says whether the element was found. What stands behind the element is not looked at. Throws
    /// `RGException` "Unsuitable XML for %1!" when `checkRoot` is true and the root element has another name,
    /// the XML reader's error text for malformed XML, and what `Check` throws when validating.
    virtual bool SetXmlString(const QString& xml, bool checkRoot);

#ifndef _MSC_VER
    /// Reads a plain or compressed representation. Traces INFO. Returns false, with the object untouched,
    /// when it begins with neither marker. Throws what `SetBinary` throws; the object then holds what was
    /// read so far.
    ///
    /// True says only that the marker was known. Damaged compressed data read as an object without data, and
    /// so do data that end behind the marker; nothing is checked afterwards. Ask the object for its data.
    virtual bool SetBinaryRepresentation(QByteArray& representation);
    virtual bool SetBinaryRepresentation(QDataStream& stream);
#else
    virtual bool SetBinaryRepresentation(QDataStream& stream);
    virtual bool SetBinaryRepresentation(QByteArray& representation);
#endif

    /// Lays the contents of `other`, an object of the same class, over this object, which is to read the XML
    /// of `other` without a reset: fields that it holds replace those of this object, coordinates and
    /// spacings are appended to those that are here. The outcome is not checked.
    ///
    /// Returns false, and traces WARNING, when the classes or the versions (compared as numbers) differ;
    /// false too when `other` writes an element of another name. When it writes nothing, nothing changes and
    /// the result is true. Throws what writing `other` and reading its XML throw.
    virtual bool MergeRGObject(const IRGObject& other);

    /// The kind, whose number `SetObjectType` has stored.
    virtual ObjectTypes GetObjectType() const;

    /// The name, which is also the XML element name and the prefix of the object's log lines.
    virtual const QString& GetObjectName() const;

    /// Reads the children of the element that the reader stands on, up to its end element. Throws
    /// `RGException` with the reader's error text for malformed XML.
    virtual void ProcessXml(QXmlStreamReader& reader);

    /// The object's element as indented text without XML declaration. It begins with a line feed; it is empty
    /// when the object writes nothing. Traces INFO; checks the object first when validating.
    virtual QString GetXmlString() const;

    /// Writes the plain representation. Traces INFO; checks the object first when validating. The stream's
    /// device must be random-access; its version is set to 12.
    virtual void GetBinaryRepresentation(QDataStream& stream) const;
    virtual QByteArray GetBinaryRepresentationAsQByteArray() const;

    /// Writes the compressed representation; `level` is zlib's, 0 to 9, or -1 for its default. Traces INFO;
    /// checks the object first when validating. The stream's version is set to 12.
    virtual void GetCompressedBinaryRepresentation(QDataStream& stream, int level) const;
    virtual QByteArray GetCompressedBinaryRepresentationAsQByteArray(int level) const;

#ifndef _MSC_VER
    /// Loads the object from the XML file at `path`. Throws `RGException` "Can't open file for reading:
    /// '%1'", which is not logged and leaves the object untouched.
    virtual bool LoadXml(const QString& path);

    /// Loads the object from an XML file that is open for reading, from where it stands. The object is reset
    /// first. Traces INFO; checks the object afterwards when validating. Returns whether the object's element
    /// was found.
    ///
    /// A file that the injected version converter knows (see `VersionConverterProxy::CanUseProxy`) is loaded
    /// by the converter, whose result is returned; this object is not checked then.
    virtual bool LoadXml(QFile* file);
#else
    virtual bool LoadXml(QFile* file);
    virtual bool LoadXml(const QString& path);
#endif

    /// Loads the object from a binary file that is open for reading, from where it stands: one serialised
    /// `QByteArray` that holds a plain or compressed representation. The object is reset first. Traces INFO;
    /// checks the object afterwards when validating.
    ///
    /// Always returns true. A file of another content, be it a representation without the four bytes of the
    /// byte array's size, leaves a reset object: ask it for its data.
    virtual bool LoadBinary(QFile* file);

    /// Writes `GetXmlString()` as UTF-8 to the file at `path`, opened as text. Returns whether the file could
    /// be opened, and nothing about the writing. The file is emptied before the object is checked: an
    /// incomplete one throws and leaves an empty file.
    virtual bool SaveXml(const QString& path) const;

    /// Turns checking on writing and loading on or off. Holders pass the flag on to their members unless
    /// their class says otherwise.
    virtual void SetValidate(bool validate) const;
    virtual bool GetValidate() const;

    /// Attaches a logger; an empty pointer removes it. Holders pass the logger on like the flag.
    virtual void SetLogger(std::shared_ptr<Logger> logger) const;

    /// Removes the logger from this object. Members keep theirs until the holder is next checked, written or
    /// read.
    virtual void ResetLogger() const;

    /// The version of the object's format, empty for classes without one.
    virtual const QString& GetVersion() const;

protected:
    /// Stores the kind, and its number as the object's id; the name becomes the kind's, or "AnyType" when the
    /// number has no name.
    virtual void SetObjectType(ObjectTypes type);

    /// Replaces the name; kind and id stay.
    virtual void SetObjectName(const QString& name);

    /// Reads the child element that the reader stands on, up to its end element. The base does nothing.
    virtual void ProcessXmlStartElement(QXmlStreamReader& reader);

public:
    /// The version of objects without one.
    static const QString EMPTY_VERSION;

    /// The number that identifies the class of the object, never the single object: the number of its kind
    /// unless the class has an id of its own.
    long long GetObjectId() const;

    /// The attached logger, empty when there is none.
    std::shared_ptr<Logger> GetLogger() const;

    /// Attaches the converter that `LoadXml` asks for files of another version; an empty pointer removes it.
    /// Traces INFO.
    void InjectVersionConverter(std::shared_ptr<VersionConverterProxy> converter);

    /// As `ObjectTypesToName`.
    static QString GetXmlTagName(ObjectTypes type);

    /// Sends a message or an exception to the logger, if there is one, as not fatal. The logger may take
    /// itself away from the object meanwhile.
    void Trace(LogLevel level, const QString& text) const;
    void Trace(LogLevel level, const RGException& exception) const;

    /// Reports an error. With a logger: logs it, then throws if `fatal` is true. Without one: throws if
    /// `throwWithoutLogger` is true.
    ///
    /// What is thrown is a plain `RGException` with the name and the text of `exception`, whatever its class.
    void TraceOrThrow(LogLevel level, RGException& exception, bool fatal, bool throwWithoutLogger) const;

    /// Skips `length` bytes and returns how many were skipped, -1 for a negative length. The last argument is
    /// not used.
    int skipCurrentElement(QDataStream& stream, int length, int) const;

    /// `data` compressed by zlib, behind its length as four bytes, most significant first.
    static QByteArray Compress(const QByteArray& data, int level);

    /// The same for a text, which is serialised first.
    static QByteArray Compress(const QString& text, int level);

    /// The inverse of `Compress`; empty when the data are damaged.
    static QByteArray UncompressBinary(const QByteArray& data);
    static QString UncompressString(const QByteArray& data);

protected:
    /// An object of a class with an identity of its own, which must stay as long as the program.
    explicit IRGObject(const ObjectIdentity& identity);

    /// Sets an id that differs from the number of the object's kind. It is what a `SettingsNotifier` files
    /// the object under.
    void SetObjectId(long long id);

    /// Applies validate flag and logger to the object itself, so that a holder's members have them too.
    void ReapplySettings() const;

    /// What stands before every write: applies the settings and, when validating, checks the object. Returns
    /// false when validating and there is nothing to write.
    bool PrepareToWrite() const;

    /// The text of the element that the reader stands on, up to the next end element, which is its own unless
    /// it has children. Of a text in several pieces, which comments, CDATA sections and children make, only
    /// the last piece counts. Throws `RGException` for malformed XML.
    QString GetTextValue(QXmlStreamReader& reader) const;

    /// Moves the reader to the next start element called `name`, at any depth. Returns false when there is
    /// none; throws `RGException` for malformed XML.
    bool ReadXmlUntil(QXmlStreamReader& reader, const QString& name) const;

private:
    Q_DECL_HIDDEN void TraceProgress(QString (*message)(const QString& objectName)) const;
    Q_DECL_HIDDEN bool StartsWith(const QString& xml, const QString& name) const;
    Q_DECL_HIDDEN bool ReadElement(QXmlStreamReader& reader);
    Q_DECL_HIDDEN void ReportXmlError(const QXmlStreamReader& reader) const;

    friend struct ObjectAccess;

    Q_DECL_HIDDEN ObjectIdentity& OwnIdentity();

    const ObjectIdentity* m_identity;

    /// Validate flag, logger and version converter.
    mutable std::atomic<std::uintptr_t> m_settings{0};
};

} // namespace REPORTGENERATOR

#endif
