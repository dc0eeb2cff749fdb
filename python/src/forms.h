#ifndef REPORTGENERATOR_PYTHON_FORMS_H
#define REPORTGENERATOR_PYTHON_FORMS_H

#include "object.h"

#include <reportcore/form.h>
#include <reportcore/problem.h>

#include <pybind11/pybind11.h>

#include <optional>
#include <string>

namespace Python {

/// A form by its name in Python, with a level of compression where there is one.
struct WantedForm
{
    ReportCore::FileForm form;
    int level = -1;

    /// Throws a `ValueError` for names and levels that there are not.
    WantedForm(const std::string& name, std::optional<int> givenLevel);
};

QByteArray Write(const AnyObject& self, const WantedForm& wanted);

/// Puts the bytes into the file, in place of what it holds.
void WriteFile(const AnyObject& self, const QString& path, const WantedForm& wanted);

/// Reads the object from a text with its element. Throws where there is none.
void ReadXml(const AnyObject& self, const QString& text, bool checkRoot);

/// Reads the object from bytes in any form.
void ReadBytes(const AnyObject& self, const QByteArray& bytes);

/// What the library's check says, with the places in what would be written.
ReportCore::Problems Check(const AnyObject& self, const WantedForm& wanted);

/// Of a file's bytes; strictly also what the library reads without complaint, but hardly anybody means.
ReportCore::Problems CheckBytes(const QByteArray& bytes, bool isStrict);

} // namespace Python

#endif
