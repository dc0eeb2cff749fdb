#include <reportgdal/errors.h>

#include <reportcore/importing/importing.h>
#include <reportcore/reportwriting.h>
#include <reportgenerator/reflection/texts.h>

#include <reportgenerator/reportbase/rgexception.h>

#include <cpl_error.h>

#include <exception>
#include <new>

namespace ReportGdal {

void Fail(const QString& text)
{
    CPLError(CE_Failure, CPLE_AppDefined, "%s", ReportCore::ToUtf8(text).constData());
}

void Warn(const QString& text)
{
    CPLError(CE_Warning, CPLE_AppDefined, "%s", ReportCore::ToUtf8(text).constData());
}

QString LineOf(const ReportCore::UnusableFile& unusable)
{
    return QStringLiteral("%1: %2").arg(unusable.file, unusable.text);
}

void FailWithException() noexcept
{
    try {
        throw;
    } catch (const ReportCore::UnusableFile& unusable) {
        Fail(LineOf(unusable));
    } catch (const ReportCore::ImportError& error) {
        Fail(error.text);
    } catch (const ReportCore::NotWritten& refused) {
        Fail(refused.text);
    } catch (const RGException& exception) {
        Fail(exception.GetErrorText());
    } catch (const std::bad_alloc&) {
        CPLError(CE_Failure, CPLE_OutOfMemory, "there is not enough memory");
    } catch (const std::exception& exception) {
        CPLError(CE_Failure, CPLE_AppDefined, "%s", exception.what());
    } catch (...) {
        CPLError(CE_Failure, CPLE_AppDefined, "an unknown exception");
    }
}

} // namespace ReportGdal
