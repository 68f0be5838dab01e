#pragma once
// A library between a program and the C library (LD_PRELOAD): it counts the file calls below one folder, and lets the
// n-th of them fail. Paths elsewhere (fonts, libraries, /proc) are neither counted nor touched, so a run repeats.
//
// A program of its own is told by the environment: VM_FAULTS_ROOT the folder, VM_FAULTS_AT n (0: none), VM_FAULTS_ERROR
// the error as in vmFaultsArm, VM_FAULTS_REPORT a file that holds "<calls> <the call that failed>" at any moment,
// VM_FAULTS_STATES a folder that gets a copy of ROOT after every call that changed something there.
// A program that knows of it looks up the functions below with dlsym.

extern "C" {

/// Counts from 0 again below `root`; call number `at` (from 1; 0: none) fails with `error`: an errno, -1
/// for the one that a call of its kind meets most, 0 for SIGKILL before the call.
void vmFaultsArm(const char* root, long at, int error);
/// Stops counting. @return the number of calls counted
long vmFaultsDisarm();
/// What failed, "kind path"; "" where nothing did.
const char* vmFaultsHit();
/// Runs after every call that made, closed, renamed or removed something; calls of its own are not counted.
void vmFaultsOnChange(void (*changed)());
}
