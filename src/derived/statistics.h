// Statistics of the selected levels by level number.
#pragma once

namespace ondrel {

struct Workspace;

/// Makes one row for every whole number from the lowest to the highest selected level number: how
/// many levels, their share of the reference time, and mean, sample standard deviation, minimum and
/// maximum of their duration (s) and amplitude (A). A row without levels has not-a-number as its
/// means and 0 elsewhere.
///
/// Without a selected level `StatisticsEmpty` is set and the rows and counts of the last run stay.
/// When there is no memory for the rows the user is told, `StatisticsEmpty` is set, and no rows are
/// left.
void CalculateStatistics(Workspace& workspace);

}  // namespace ondrel
