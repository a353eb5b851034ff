#pragma once

#include <QFont>

namespace controls {

enum class Weight { Normal, Bold };

/// The face that the controls are lettered in unless they say otherwise. Where the desktop doesn't have it,
/// its sans serif takes the place.
inline constexpr const char16_t* UsualFontName = u"MS Sans Serif";
inline constexpr double UsualFontPoints = 8.25;

/// A face in a size in points. It grows with the display's twips per pixel as all lengths do, so that text
/// keeps its place in what is drawn around it.
QFont ControlFont(double points = UsualFontPoints, Weight weight = Weight::Normal,
                  const QString& name = QString::fromUtf16(UsualFontName));

}  // namespace controls
