#include "digest/digests.h"

#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

#include <stdexcept>

namespace Digest {
namespace {

constexpr char VALUE = '=';
constexpr char EXCEPTION = '!';

constexpr std::array<const char*, FORMS> NAMES = {
    "xml-string",  "xml-file", "xml-writer",  "body",          "plain",       "compressed", "raw",
    "binary-file", "checks",   "reading-xml", "reading-bytes", "reading-raw", "log-lines"};

/// A text code unit by code unit, also where it is no valid UTF-16; null differs from empty.
QByteArray Units(const QString& text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    stream << text;
    return bytes;
}

} // namespace

const char* NameOf(Form form)
{
    return NAMES[static_cast<std::size_t>(form)];
}

bool FormOfName(const QByteArray& name, Form& form)
{
    for (std::size_t i = 0; i < FORMS; ++i) {
        if (name == NAMES[i]) {
            form = static_cast<Form>(i);
            return true;
        }
    }
    return false;
}

Digests::Digests()
{
    for (std::unique_ptr<QCryptographicHash>& hash : m_hashes)
        hash = std::make_unique<QCryptographicHash>(QCryptographicHash::Sha256);
}

void Digests::BeginObject()
{
    m_given.fill(QByteArray());
}

void Digests::EndObject()
{
    for (std::size_t i = 0; i < FORMS; ++i) {
        const Form form = static_cast<Form>(i);
        QByteArray& given = m_given[i];
        if (m_fault.object == m_objects && m_fault.form == form) {
            if (given.isEmpty())
                throw std::invalid_argument("this object gives nothing in that form");
            const int last = static_cast<int>(given.size()) - 1;
            given[last] = static_cast<char>(given.at(last) ^ 1);
        }
        m_bytes[i] += given.size();
        const QByteArray digest = QCryptographicHash::hash(given, QCryptographicHash::Sha256).toHex();
        // As a digest each, so that none can run into the next.
        m_hashes[i]->addData(digest);
        if (m_listener)
            m_listener(form, m_objects, digest, given);
    }
    ++m_objects;
}

void Digests::Add(Form form, const QByteArray& bytes)
{
    Add(form, VALUE, bytes);
}

void Digests::Add(Form form, const QString& text)
{
    Add(form, VALUE, Units(text));
}

void Digests::Attempt(Form form, const std::function<QByteArray()>& call)
{
    try {
        Add(form, VALUE, call());
    } catch (const RGException& exception) {
        Add(form, EXCEPTION, Units(exception.GetErrorName()) + Units(exception.GetErrorText()));
    }
}

QByteArray Digests::Of(Form form) const
{
    return m_hashes[static_cast<std::size_t>(form)]->result().toHex();
}

QByteArray Digests::OfEverything() const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (std::size_t i = 0; i < FORMS; ++i)
        hash.addData(Of(static_cast<Form>(i)));
    return hash.result().toHex();
}

/// Kind and size stand before the bytes, so that two rows of them can't look alike.
void Digests::Add(Form form, char kind, const QByteArray& bytes)
{
    QByteArray& given = m_given[static_cast<std::size_t>(form)];
    given += kind;
    given += QByteArray::number(bytes.size());
    given += ' ';
    given += bytes;
}

} // namespace Digest
