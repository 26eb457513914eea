// Failures of the disk on demand: what calls of the system on plain files do from the n-th of a kind on.
//
// Linked into a test program it is set up by `failFrom`; loaded in front of another program (LD_PRELOAD) it is set up
// by the variable FAULT, such as "write 3". With NOTMPFILE no disk can make a file without a name.
#pragma once

#include <string>

namespace moistair::faults {

/// From the n-th call on, `call` fails as on a disk that is full or broken, so many times; the n-th write still takes
/// half of its bytes. 0 for never.
void failFrom(const std::string& call, int n, int times = 1000000);

}  // namespace moistair::faults
