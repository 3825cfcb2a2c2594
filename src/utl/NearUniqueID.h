#pragma once
// Numbers that tell things apart without a registry of names: pictures take
// one as their stream name.

// A 32-bit number (in unsigned long) that differs on nearly every call.
// Within a process no value comes back before 2^32 calls have been made,
// from any number of threads; each process, a forked child included, starts
// at its own random place, so two processes rarely meet.
unsigned long GetNearUniqueID();
