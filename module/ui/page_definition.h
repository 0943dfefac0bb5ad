// What a page is: the steps of its messages, in their order. Held against what the page has to do,
// a definition shows where it is like most pages and where it is not.
#pragma once

#include "dialog/help.h"
#include "preview/shared_view.h"
#include "ui/steps.h"

namespace kvui {

struct PageDefinition {
    const char* dialogName;  // of the page's items in the catalogue
    int helpTopic;
    ViewKind view = kViewNone;  // that the preview panel offers over the page
    DWORD tailSize = 0;         // bytes of its own behind the page's state
    Step open = kOpen;
    Step show = ShowOwnViews;  // whenever the page comes up: by Show
    Step activate = kActivate;
    Step command = kCommand;
    Step scroll = kScroll;
    Step take = kTake;        // a change of settings: by Take
    Step refresh = kRefresh;  // by Refresh
    Step refill = kRefill;    // the settings were changed elsewhere
    Step apply = Keep;
    Step reset = Restore;
    Step help = ShowHelp;
    Step popupHelp = ShowControlHelp;
    Step paintStatic = nullptr;  // answers with a brush, or FALSE
    Step drawItem = DrawEntry;
    Step firstActivation = nullptr;
    Step rightButton = nullptr;   // is pressed on the page itself
    Step initialFocus = nullptr;  // answers with a control of the page
    Step close = kClose;
};

INT_PTR RunPage(const PageDefinition& definition, HWND page, UINT message, WPARAM wParam,
                LPARAM lParam);

}  // namespace kvui
