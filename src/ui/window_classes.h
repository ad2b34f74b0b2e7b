// Registration of the four window classes of the program.
#pragma once

#include <windows.h>

namespace ruvo {

constexpr const char* FrameClassName = "DavoEditClass";
constexpr const char* StatusClassName = "StatusClass";
constexpr const char* EditClassName = "EditWinCLass"; // the capital L is part of the name
constexpr const char* ButtonBarClassName = "ButtonClass";

// False as soon as one registration fails.
[[nodiscard]] bool RegisterWindowClasses(HINSTANCE instance);

} // namespace ruvo
