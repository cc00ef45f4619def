// What the procedure shares with its sisters, under its own name.

#pragma once

#include "procedures/common/data_access_chain.h"
#include "procedures/common/fetch.h"
#include "procedures/common/series_matrix.h"
#include "procedures/common/time_axis.h"

namespace varmodel {

using procedures::AlgoDataAccess;
using procedures::DataAccessChain;
using procedures::FetchOutcome;
using procedures::kSystemMissing;
using procedures::SeriesMatrix;
using procedures::TimeAxis;

}  // namespace varmodel
