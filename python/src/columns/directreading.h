#ifndef REPORTCOLUMNS_DIRECTREADING_H
#define REPORTCOLUMNS_DIRECTREADING_H

#include <reportgenerator/reportbase/schema/reportbaseschema.h>

#include <cstddef>

namespace ReportColumns {

/// Reads a good report on the library's fast path into a record that nothing was read into yet. `bytes` hold it in any form,
/// in the shape that the library writes, and nothing else but XML's usual declaration. False for whatever is odd or has
/// problems: then the record is as it may, and `ReportCore::ReadReport` tells more.
bool ReadDirectly(const char* bytes, std::size_t size, REPORTGENERATOR::ReportBaseData& data);

} // namespace ReportColumns

#endif
