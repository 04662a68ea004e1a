// The home of the precompiled header that all tests share.
