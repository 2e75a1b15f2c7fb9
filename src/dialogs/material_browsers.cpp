#include "dialogs/material_browsers.h"

namespace halvorne {

MaterialBrowsers& materialBrowsers() {
  static MaterialBrowsers browsers;
  return browsers;
}

}  // namespace halvorne
