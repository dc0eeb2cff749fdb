#ifndef REPORTGENERATOR_QT_EVERYTHING_H
#define REPORTGENERATOR_QT_EVERYTHING_H

// All that Qt developers expect of value classes. The headers may be included one by one just as well.

#include <reportgenerator/qt/aswritten.h>
#include <reportgenerator/qt/datastream.h>
#include <reportgenerator/qt/difference.h>
#include <reportgenerator/qt/files.h>
#include <reportgenerator/qt/hash.h>
#include <reportgenerator/qt/metatypes.h>
#include <reportgenerator/qt/optional.h>
#include <reportgenerator/qt/output.h>
#include <reportgenerator/qt/points.h>
#include <reportgenerator/qt/standardexception.h>
#include <reportgenerator/qt/totext.h>

#endif
