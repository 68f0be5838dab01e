// The tests' own code is not optimised, so it calls the C library's sqrt, and MinGW's rounds twice. The program's code
// has the processor's instead, and so has every test with this.

#include <emmintrin.h>

extern "C" double sqrt(double x)
{
    const __m128d value = _mm_set_sd(x);
    return _mm_cvtsd_f64(_mm_sqrt_sd(value, value));
}
