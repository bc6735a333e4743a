#pragma once
// The program's own help text, as HTML for the help window.
#include <QString>

namespace wordtally::ui {

QString HelpHtml();

}  // namespace wordtally::ui
