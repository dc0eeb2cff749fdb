#include <reportgdal/driver.h>

#include <reportgdal/errors.h>
#include <reportgdal/files.h>
#include <reportgdal/identifying.h>
#include <reportgdal/reading.h>
#include <reportgdal/writing.h>

#include <reportcore/files.h>
#include <reportcore/form.h>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>

#include <memory>

namespace ReportGdal {

using ReportCore::FileForm;
using ReportCore::Form;
using ReportCore::UnusableFile;

namespace {

constexpr char DRIVER[] = "REPORTS";

/// In front of a name it says that this driver is meant, whatever the file looks like.
constexpr char PREFIX[] = "REPORTS:";

constexpr char OPEN_OPTIONS[] = "<OpenOptionList>"
                                "<Option name='RECURSIVE' type='boolean' default='NO' description='Whether "
                                "to take the folders in a folder, too'/>"
                                "<Option name='STRICT' type='boolean' default='NO' description='Whether a "
                                "file without a good report ends the "
                                "reading, or has a warning and no row'/>"
                                "</OpenOptionList>";

constexpr char CREATION_OPTIONS[] =
    "<CreationOptionList>"
    "<Option name='FORM' type='string-select' default='xml' description='Form of the files: as reporttool "
    "convert --to "
    "writes them'>"
    "<Value>xml</Value><Value>plain</Value><Value>compressed</Value><Value>file</Value>"
    "</Option>"
    "</CreationOptionList>";

bool HasPrefix(const char* name)
{
    return STARTS_WITH_CI(name, PREFIX);
}

std::string WithoutPrefix(const char* name)
{
    return HasPrefix(name) ? name + sizeof PREFIX - 1 : name;
}

bool IsRecursive(const GDALOpenInfo& info)
{
    return CPLFetchBool(info.papszOpenOptions, "RECURSIVE", false);
}

int Identify(GDALOpenInfo* info)
{
    return Guarded<int>(FALSE, [info]() -> int {
        if (HasPrefix(info->pszFilename))
            return TRUE;
        if (info->bIsDirectory)
            return HoldsReports(info->pszFilename, IsRecursive(*info)) ? TRUE : FALSE;
        return BeginsAsReport(QByteArray::fromRawData(reinterpret_cast<const char*>(info->pabyHeader),
                                                      info->nHeaderBytes))
                   ? TRUE
                   : FALSE;
    });
}

GDALDataset* Open(GDALOpenInfo* info)
{
    return Guarded<GDALDataset*>(nullptr, [info]() -> GDALDataset* {
        // Who gets nothing that can be changed asks for the same to be read, and tells of errors on the way.
        if (info->eAccess == GA_Update || Identify(info) == FALSE)
            return nullptr;
        const std::string name = WithoutPrefix(info->pszFilename);
        VSIStatBufL state;
        if (VSIStatExL(name.c_str(), &state, VSI_STAT_EXISTS_FLAG) != 0)
            throw UnusableFile{TextOf(name), QStringLiteral("no such file")};
        const std::vector<std::string> files =
            IsFolder(name) ? FilesOf(name, IsRecursive(*info)) : std::vector<std::string>{name};
        return new ReportsDataset(name, files, CPLFetchBool(info->papszOpenOptions, "STRICT", false));
    });
}

/// The form of the word; unknown for others.
FileForm FormOf(const std::string& word)
{
    for (const FileForm& form : {FileForm{Form::Xml}, FileForm{Form::Plain}, FileForm{Form::Compressed},
                                 FileForm{Form::Plain, true}}) {
        if (EQUAL(word.c_str(), WordFor(form).data()))
            return form;
    }
    return {};
}

/// What is asked for, or what the file's name ends in; otherwise XML.
FileForm FormFor(const std::string& name, char** options)
{
    const char* const word = CSLFetchNameValue(options, "FORM");
    const FileForm form = FormOf(word ? word : CPLGetExtension(name.c_str()));
    if (form.form == Form::Unknown && word)
        throw UnusableFile{
            TextOf(name),
            QStringLiteral("FORM is xml, plain, compressed or file, not %1").arg(QString::fromUtf8(word))};
    return form.form == Form::Unknown ? FileForm{Form::Xml} : form;
}

/// Reports that stand in it already would be among those that are read from it.
void RequireEmpty(const std::string& folder)
{
    ForEachFile(folder, false, [&folder](const std::string& /*name*/) -> bool {
        throw UnusableFile{TextOf(folder), QStringLiteral("the folder is not empty")};
    });
}

GDALDataset* Create(const char* name, int /*width*/, int /*height*/, int bands, GDALDataType /*type*/,
                    char** options)
{
    return Guarded<GDALDataset*>(nullptr, [&]() -> GDALDataset* {
        Target target{WithoutPrefix(name), true, {}};
        if (bands > 0)
            throw UnusableFile{TextOf(target.name), QStringLiteral("reports have no bands")};
        target.form = FormFor(target.name, options);
        if (IsFolder(target.name)) {
            RequireEmpty(target.name);
        } else if (*CPLGetExtension(target.name.c_str()) != '\0') {
            target.isFolder = false;
        } else if (VSIMkdir(target.name.c_str(), 0777) != 0) {
            throw UnusableFile{TextOf(target.name), QStringLiteral("the folder cannot be made")};
        }
        return new WrittenDataset(target);
    });
}

/// GDAL deletes what stands where something is to be created. Reports stay until others have taken their place.
CPLErr Delete(const char* name)
{
    CPLError(CE_Failure, CPLE_NotSupported, "%s: reports are not deleted by this driver", name);
    return CE_Failure;
}

} // namespace

void RegisterDriver()
{
    if (!GDAL_CHECK_VERSION(DRIVER) || GDALGetDriverByName(DRIVER))
        return;
    auto driver = std::make_unique<GDALDriver>();
    driver->SetDescription(DRIVER);
    driver->SetMetadataItem(GDAL_DCAP_VECTOR, "YES");
    driver->SetMetadataItem(GDAL_DCAP_OPEN, "YES");
    driver->SetMetadataItem(GDAL_DCAP_CREATE, "YES");
    driver->SetMetadataItem(GDAL_DCAP_VIRTUALIO, "YES");
    driver->SetMetadataItem(GDAL_DMD_LONGNAME, "Reports of radio monitoring");
    driver->SetMetadataItem(GDAL_DMD_CONNECTION_PREFIX, PREFIX);
    driver->SetMetadataItem(GDAL_DMD_OPENOPTIONLIST, OPEN_OPTIONS);
    driver->SetMetadataItem(GDAL_DMD_CREATIONOPTIONLIST, CREATION_OPTIONS);
    driver->SetMetadataItem(GDAL_DS_LAYER_CREATIONOPTIONLIST, "<LayerCreationOptionList/>");
    driver->SetMetadataItem(GDAL_DMD_CREATIONFIELDDATATYPES, "Integer Integer64 Real String");
    driver->SetMetadataItem(GDAL_DMD_CREATIONFIELDDATASUBTYPES, "Boolean");
    driver->pfnIdentify = Identify;
    driver->pfnOpen = Open;
    driver->pfnCreate = Create;
    driver->pfnDelete = Delete;
    GetGDALDriverManager()->RegisterDriver(driver.release());
}

} // namespace ReportGdal
