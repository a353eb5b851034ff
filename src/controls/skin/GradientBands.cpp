#include "controls/skin/GradientBands.h"

#include "platform/Failure.h"
#include "platform/MessageBox.h"
#include "platform/Rounding.h"

namespace controls {

namespace {

double Divided(double dividend, double divisor) {
    if (divisor == 0) {
        platform::RaiseDivisionByZero();
    }
    return dividend / divisor;
}

}  // namespace

Bands CutIntoBands(qint32 x1, qint32 Y1, qint32 X2, qint32 Y2, qint16 bandCount) {
    Bands bands;
    bands.left = x1;
    bands.top = Y1;
    bands.width = platform::ToLong(X2 - bands.left);
    bands.height = platform::ToLong(Y2 - bands.top);
    bands.down = platform::ToInteger(Divided(bands.height, bandCount));
    bands.across = platform::ToInteger(Divided(bands.width, bandCount));
    return bands;
}

void ForEachBand(qint32 limit, qint16 step, const std::function<void(qint16)>& paint) {
    if (limit < 1) {
        return;
    }
    if (step < 1) {
        throw platform::Failure(platform::FailureNumber::InvalidProcedureCall,
                                QStringLiteral("Invalid procedure call or argument"));
    }
    for (qint32 place = 1; place <= limit; place = platform::ToInteger(place + step)) {
        paint(static_cast<qint16>(place));
    }
}

float FractionOf(qint16 place, double length) {
    return static_cast<float>(Divided(place, length));
}

void ReportDrawingFailure() {
    const auto failure = platform::CurrentFailure();
    if (failure) {
        platform::ShowMessageBox(QString::number(failure->Number()) + QLatin1String(" - ") +
                                 failure->Description());
    }
}

}  // namespace controls
