#pragma once

#ifndef _WIN32

#include <csignal>

/// As long as it lives, the signals by which a person ends a command wait: nothing stays half done.
class SignalsHeld {
public:
    SignalsHeld()
    {
        sigset_t ends;
        sigemptyset(&ends);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) sigaddset(&ends, signal);
        pthread_sigmask(SIG_BLOCK, &ends, &m_before);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t m_before;
};

#else

class SignalsHeld {
public:
    SignalsHeld() {}
};

#endif
