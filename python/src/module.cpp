#include "classes.h"
#include "errors.h"

PYBIND11_MODULE(_reportgenerator, module)
{
    module.doc() = "The library's classes; the package `reportgenerator` offers them.";
    pybind11::options options;
    options.disable_function_signatures();
    Python::RegisterErrors();
    Python::BindBase(module);
    Python::BindClasses(module);
    Python::BindVocabularies(module);
    Python::BindConverters(module);
    Python::BindServices(module);
}
