// The headers that all tests share are compiled with this file, which needs nothing of its own.
