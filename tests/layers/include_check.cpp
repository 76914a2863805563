// Compiled with the include folders of one layer only, by the checks in CMakeLists.txt: it
// includes the header the check names and nothing else.
#include KORVANE_CHECKED_HEADER
