#ifndef REPORTCOLUMNS_SIGNALS_H
#define REPORTCOLUMNS_SIGNALS_H

namespace ReportColumns {

/// To be called when the module is loaded.
void PrepareSignals();

/// Has Python handle signals that have come, such as that of Ctrl-C, and throws what their handlers throw. Python does so in its main
/// thread; in others nothing happens.
void HandleSignals();

} // namespace ReportColumns

#endif
