#pragma once

// Every other header needs this. The name of the file that is missing ends the compilation, which
// would otherwise go on for thousands of lines.
#if __cplusplus < 202002L
#error "PerchAppLibrary and VelmoCloudEntity need C++20: add the option -std=c++20"
#include <the option -std=c++20>
#endif
