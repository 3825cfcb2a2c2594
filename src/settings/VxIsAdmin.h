#pragma once
// Whether the process runs with administrator rights.

// True when the effective user is root. Membership of "sudo", "wheel" or
// "admin" is not enough: like an administrator's unelevated token, such a
// user may become root but is not, and cannot write what only an
// administrator may (the machine's registry hive, /etc).
bool VxIsAdmin();
