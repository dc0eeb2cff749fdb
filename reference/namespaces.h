/// @namespace REPORTGENERATOR
/// The library: classes of reports and tasks, and what serves them.
///
/// Exceptions, `Converters` and the base library `wendbase` stand at global scope.
