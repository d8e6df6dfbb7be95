#include "shell/report/MakeDrawing.h"

#include "shell/report/CBarDrawing.h"
#include "shell/report/CLineDrawing.h"
#include "viewmodel/report/ChartModel.h"

std::unique_ptr<CChartDrawing> MakeDrawing(const ChartModel& model, const QRectF& place,
                                           const PictureStyle& style) {
    if (model.form == ChartForm::Bars) return std::make_unique<CBarDrawing>(model, place, style);
    return std::make_unique<CLineDrawing>(model, place, style);
}
