// The "startup.err" message window that shows the start-up error log.
#pragma once

namespace ruvo {

constexpr const char* StartupErrorName = "startup.err";

// Shows every line of the start-up error log in the "startup.err" window: an open one of
// kind 2 gets its text replaced and comes to the front, else a new one is opened.
void ShowStartupErrors();

} // namespace ruvo
