#pragma once

namespace controls {

class akDate;

/// Makes date controls known to screen readers: a group with its boxes and buttons, and, while the calendar
/// is open, a table of its days after them. The table is named after the month on show; each cell bears its
/// date in full ("14 March 2009"), says whether it is the one in the boxes, and picks it when pressed. Below
/// the days, over the whole width, stands "<None>" where the control allows it.
void RegisterDateAccessible();

/// Announces that the control, which is disabled with its boxes, is Enabled now or isn't any more.
void AnnounceDateEnabled(akDate& date);

/// Announces what has become of the calendar. Closing is told while it is still open.
void AnnounceCalendarOpened(akDate& date);
void AnnounceCalendarChanged(akDate& date);
void AnnounceCalendarClosing(akDate& date);

}  // namespace controls
