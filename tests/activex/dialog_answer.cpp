// Answers the dialogs a control shows while a script runs (the script host would wait for a
// click forever): every dialog that appears is printed and closed with OK, until the file DONE
// exists (the script has ended) or SECONDS have passed.
//     dialog-answer DONE SECONDS
// Prints "DIALOG <title>|<text>" per dialog, the text being the message box's static text.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "check.h"

using vex::activex::test::Narrow;

int wmain(int argc, wchar_t** argv)
{
    if (argc != 3)
        return 2;
    const wchar_t* done = argv[1];
    const int seconds = _wtoi(argv[2]);
    for (int waited = 0; waited < seconds * 20; ++waited) {
        HWND dialog = FindWindowW(L"#32770", nullptr);
        wchar_t title[256] {}, text[512] {};
        // A dialog being made has no title or text yet: answer it once it is shown.
        if (dialog && IsWindowVisible(dialog) && GetWindowTextW(dialog, title, 255) > 0) {
            GetDlgItemTextW(dialog, 0xFFFF, text, 511); // a message box's text is its static 0xFFFF
            std::wstring line;
            for (const wchar_t* c = text; *c; ++c) // one line per dialog: " / " between its lines
                *c == L'\n' ? line += L" / " : *c == L'\r' ? line : line += *c;
            std::printf("DIALOG %s|%s\n", Narrow(title).c_str(), Narrow(line.c_str()).c_str());
            std::fflush(stdout);
            SendMessageW(dialog, WM_COMMAND, IDOK, 0);
            Sleep(100);
            continue;
        }
        if (GetFileAttributesW(done) != INVALID_FILE_ATTRIBUTES)
            return 0;
        Sleep(50);
    }
    std::printf("dialog-answer: timed out\n");
    return 1;
}
