#pragma once

#include <QString>

namespace gallery {

class GalleryWindow;

/// Saves a picture of each sheet to the folder, as dense as the display is. The files are called after the
/// sheets, with the suffix behind: "text-box-dark.png". Failure 53 for a file that can't be written.
void SavePictures(GalleryWindow& window, const QString& folder, const QString& suffix);

}  // namespace gallery
