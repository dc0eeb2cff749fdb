#ifndef REPORTCORE_SEQUENCES_H
#define REPORTCORE_SEQUENCES_H

#include <vector>

namespace ReportCore {

/// A run of items that two sequences have in common.
struct CommonRun
{
    int left = 0; ///< where it begins
    int right = 0;
    int size = 0;
};

/// Finds what two sequences have in common, in their order: as much as there is where they differ in up to some hundred
/// items, and otherwise what follows from items that occur once in each. Takes time in proportion to their size and, up
/// to a bound, to the number of differences. The items are numbers from 0, the same number for equal items.
std::vector<CommonRun> FindCommonRuns(const std::vector<int>& left, const std::vector<int>& right);

} // namespace ReportCore

#endif
