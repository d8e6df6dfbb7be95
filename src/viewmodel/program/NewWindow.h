#pragma once

class CCfgStore;

/// Before a home's window comes up for the first time it is set up as a new user likes it best: with its list
/// in columns and few buttons on its bars. The defaults of the settings stay what they are, for the console
/// and for who resets them. A home whose window was open before, also one of an older version, keeps what it
/// has; so does a setting that isn't its default any more. False when that couldn't be kept.
[[nodiscard]] bool SetUpNewWindow(CCfgStore& settings);
