#pragma once

namespace halvorne {

/// Gives the two large dialogs their way to the material browsers: called once, at start-up.
void OfferMaterialBrowsers();

}  // namespace halvorne
