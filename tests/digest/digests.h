#ifndef TESTS_DIGEST_DIGESTS_H
#define TESTS_DIGEST_DIGESTS_H

// What is digested, form by form, so that two platforms can be compared without looking at all of it.

#include <QtCore/QByteArray>
#include <QtCore/QCryptographicHash>
#include <QtCore/QString>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>

namespace Digest {

/// The forms in which objects are written and what is told of them.
enum class Form : int
{
    XmlString,
    XmlFile,
    XmlWriter,
    Body,
    Plain,
    Compressed,
    Raw,
    BinaryFile,
    Checks,
    ReadingXml,
    ReadingBytes,
    ReadingRaw,
    LogLines
};

constexpr std::size_t FORMS = 13;

/// As it is printed: "xml-string".
const char* NameOf(Form form);

/// The form of that name; false when there is none.
bool FormOfName(const QByteArray& name, Form& form);

/// One byte of what an object gives is changed before it is digested.
struct Fault
{
    Form form = Form::XmlString;
    int object = -1;
};

class Digests
{
public:
    Digests();

    void Inject(const Fault& fault) { m_fault = fault; }

    /// Called with the form, the number of the object, the digest of what it gave in that form, and that itself.
    using Listener =
        std::function<void(Form form, int object, const QByteArray& digest, const QByteArray& given)>;
    void Listen(Listener listener) { m_listener = std::move(listener); }

    /// What follows belongs to the next object.
    void BeginObject();
    void EndObject();

    void Add(Form form, const QByteArray& bytes);
    void Add(Form form, const QString& text);

    /// Adds what the call returns, or the name and the text of the exception that it ends with.
    void Attempt(Form form, const std::function<QByteArray()>& call);

    int Objects() const { return m_objects; }
    qint64 Bytes(Form form) const { return m_bytes[static_cast<std::size_t>(form)]; }

    /// In hexadecimal digits.
    QByteArray Of(Form form) const;
    QByteArray OfEverything() const;

private:
    void Add(Form form, char kind, const QByteArray& bytes);

    std::array<std::unique_ptr<QCryptographicHash>, FORMS> m_hashes;
    std::array<qint64, FORMS> m_bytes{};
    /// What the present object gave so far.
    std::array<QByteArray, FORMS> m_given;
    Fault m_fault;
    Listener m_listener;
    int m_objects = 0;
};

} // namespace Digest

#endif
