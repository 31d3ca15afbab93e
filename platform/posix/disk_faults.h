// Faults of the disk for tests: the n-th operation that changes something on it fails, or the program dies
// there.
#pragma once

namespace base::disk::faults {

inline constexpr int kDie = -1;  // in place of an error of <cerrno>

// The operation number `nth`, from 1, of those that come: making a folder, making or opening a file to
// write, writing (of which half is done), resizing, flushing, renaming.
void planAt(int nth, int code);
bool happened();  // ends the plan

// For the disk alone: the fault that is due now, else 0; and what then happens.
int due();
int strike(int code);

}  // namespace base::disk::faults
