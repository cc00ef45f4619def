// The keyword lists of the command and the settings that each keyword turns on, in the order of the syntax description.

#pragma once

#include <array>

#include "procedures/common/command_table.h"
#include "procedures/varmodel/syntax/input_settings.h"

namespace varmodel {

using KeywordFlag = procedures::KeywordFlag<VARInputSettings>;

inline constexpr std::array<KeywordFlag, 3> kLagFlags = {{
    {"AIC", &VARInputSettings::useAic},
    {"BIC", &VARInputSettings::useBic},
    {"HQIC", &VARInputSettings::useHqic},
}};

inline constexpr std::array<KeywordFlag, 16> kModelFitFlags = {{
    {"DESCRIPTIVES", &VARInputSettings::showDescriptives},
    {"GOODFIT", &VARInputSettings::showGoodFit},
    {"PARAMETERS", &VARInputSettings::showParameters},
    {"RES", &VARInputSettings::showRes},
    {"RESIDACF", &VARInputSettings::showResidAcf},
    {"MSE", &VARInputSettings::showMse},
    {"RMSE", &VARInputSettings::showRmse},
    {"MAE", &VARInputSettings::showMae},
    {"MAPE", &VARInputSettings::showMape},
    {"RSQUARE", &VARInputSettings::showRSquare},
    {"ARSQUARE", &VARInputSettings::showAdjRSquare},
    {"CORRMATRIX", &VARInputSettings::showCorrMatrix},
    {"EIGEN", &VARInputSettings::showEigen},
    {"TNORM", &VARInputSettings::showTestNormality},
    {"TAUTO", &VARInputSettings::showTestAutocorrelation},
    {"FORECASTS", &VARInputSettings::showForecasts},
}};

inline constexpr std::array<KeywordFlag, 8> kPlotFlags = {{
    {"TIMESERIES", &VARInputSettings::plotTimeSeries},
    {"ACF", &VARInputSettings::plotAcf},
    {"RES", &VARInputSettings::plotRes},
    {"RESCOMB", &VARInputSettings::plotResComb},
    {"RESACF", &VARInputSettings::plotResAcf},
    {"RESACFCOMB", &VARInputSettings::plotResAcfComb},
    {"FIT", &VARInputSettings::plotFit},
    {"FORECAST", &VARInputSettings::plotForecast},
}};

}  // namespace varmodel
