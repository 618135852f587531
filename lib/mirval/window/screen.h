// The page's side of screen windows: output/page.cpp asks here whether the picture goes to a
// window instead of a file, and hands it over at SENDBF, MIRFIN and the end of the program.
#pragma once

// At MIRINI with 'CONS' or 'XWIN': opens (or reuses) a window; false when none can be opened.
bool screen_begin();
// Whether the open page is shown in a screen window rather than written to a file.
bool screen_active();
// Shows the current page in its window now (SENDBF, quick plots).
void screen_update();
// MIRFIN: shows the page, waits for a key or a click unless WINMOD says otherwise, closes.
void screen_finish();
// End of the program with the page still open: the window stays until a key or a click.
void screen_at_exit();
