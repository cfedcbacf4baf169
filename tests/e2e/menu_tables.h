// The menus as they should be: texts, numbers, separators, and in which of the three states an
// entry can be chosen.
#pragma once

#include <string>
#include <vector>

namespace ondrel::e2e {

enum class MenuState { NoData, Data, ActiveView };

/// The bar in a state, as MenuLines gives it; popups that are grey keep their entries' own states
/// out of the lines. `viewLines` are those of the view's popup and stand before "&Help".
std::vector<std::string> ExpectedBar(MenuState state,
                                     const std::vector<std::string>& viewLines = {});

/// Lines of a view's popup, by the title of the view; none for the views of fit parameters, which
/// have no popup. `fitOpen` tells whether a histogram's fit parameters are open.
std::vector<std::string> ExpectedViewPopup(const std::string& view, bool fitOpen = false);

}  // namespace ondrel::e2e
