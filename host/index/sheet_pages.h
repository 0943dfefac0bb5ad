// The pages of the sheet that commands open, by the names that people and the module give them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

constexpr int kSheetPages = 8;

// Index of the page with this dialog name in the catalogue; -1 when the dialog is no page.
int PageIndexOfDialog(std::string_view dialogName);
// Index of the page that a caption, template or dialog name means; -1 when none does.
int PageIndexOfName(std::string_view name);
const char* PageTemplate(int index);
const char* PageDialog(int index);
// What the pages are called on the command line.
std::vector<std::string> PageNames();

}  // namespace kvhost
