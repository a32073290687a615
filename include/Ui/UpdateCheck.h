#pragma once

namespace Ui {

// Asks the update address (the build's, or ORVANE_UPDATE_URL) for latest.json
// at most once a day, waiting at most 5 seconds, and offers the download page
// of a newer version in a question box shown at the next idle. Every failure
// is silent; with no address nothing is checked.
void checkForUpdate();

} // namespace Ui
