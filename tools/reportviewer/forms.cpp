#include <reportviewer/forms.h>

#include <algorithm>

namespace ReportViewer {

using ReportCore::FileForm;
using ReportCore::Form;

const std::vector<NamedForm>& AllForms()
{
    static const std::vector<NamedForm> forms = {
        {{Form::Xml, false}, "XML"},
        {{Form::Plain, false}, "Plain"},
        {{Form::Compressed, false}, "Compressed"},
        {{Form::Plain, true}, "Binary file"},
        {{Form::Compressed, true}, "Compressed binary file"},
    };
    return forms;
}

const NamedForm* FindForm(const FileForm& form)
{
    const auto found = std::find_if(AllForms().begin(), AllForms().end(), [&form](const NamedForm& each) {
        return each.form.form == form.form && each.form.isBinaryFile == form.isBinaryFile;
    });
    return found == AllForms().end() ? nullptr : &*found;
}

QString FormText(const FileForm& form)
{
    const NamedForm* const found = FindForm(form);
    return found ? QLatin1String(found->name) : QStringLiteral("Unknown form");
}

QString BytesText(qint64 count)
{
    return count == 1 ? QStringLiteral("1 byte") : QStringLiteral("%1 bytes").arg(count);
}

QString FilterOf(const NamedForm& form)
{
    return QStringLiteral("%1 (*.%2)").arg(QLatin1String(form.name), ReportCore::WordFor(form.form));
}

} // namespace ReportViewer
