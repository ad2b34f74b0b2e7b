// Ten numbered bookmarks shared by all edit windows, and their twenty commands.
#pragma once

namespace ruvo {

// Remembers the caret of the current buffer as bookmark n. Result 0.
int SetBookmark(int n);
// Activates the bookmark's window and moves its caret there. 0 on success or when the window
// is gone, 1 when the bookmark was never set.
int GotoBookmark(int n);

int GotoMark0();
int GotoMark1();
int GotoMark2();
int GotoMark3();
int GotoMark4();
int GotoMark5();
int GotoMark6();
int GotoMark7();
int GotoMark8();
int GotoMark9();
int SetMark0();
int SetMark1();
int SetMark2();
int SetMark3();
int SetMark4();
int SetMark5();
int SetMark6();
int SetMark7();
int SetMark8();
int SetMark9();

} // namespace ruvo
