/*
 * A host that computes in floating-point environments of its own: it rounds in other directions,
 * lets exceptions raise a signal as some runtimes do, and flushes tiny numbers to zero. None of it
 * may change a byte of an output, end the process, or be changed by a conversion.
 *
 * usage: floatingPoint FOLDER
 */

#define _GNU_SOURCE
#include <tavo/tavo.h>

#include <fenv.h>
#include <stdio.h>
#include <string.h>
#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

/* Numbers whose last printed digits depend on how the arithmetic rounds, and tiny ones. */
static const char* const good =
    "/begin PROJECT p \"\" /begin MODULE m \"\"\n"
    "/begin COMPU_METHOD tiny \"\" RAT_FUNC \"\" \"\" COEFFS 0 1e-310 1 0 0 1e-310 "
    "/end COMPU_METHOD\n"
    "/begin COMPU_METHOD large \"\" RAT_FUNC \"\" \"\" COEFFS 0 3. -1e11 0 0 1234567890123.3 "
    "/end COMPU_METHOD\n"
    "/begin MEASUREMENT t \"\" UWORD tiny 0 0 1e-320 4.9e-324 /end MEASUREMENT\n"
    "/begin MEASUREMENT l \"\" UWORD large 0 0 98765432109876.54321098765432109876 "
    "0.0000015000000000000001 /end MEASUREMENT\n"
    "/end MODULE /end PROJECT\n";

static char folder[1000];
static char expected[4000];
static int failures = 0;

static void check(int condition, const char* what, const char* environment)
{
    if (!condition) {
        fprintf(stderr, "%s: %s\n", environment, what);
        ++failures;
    }
}

static const char* path(const char* name)
{
    static char text[1100];
    snprintf(text, sizeof text, "%s/%s", folder, name);
    return text;
}

static int32_t convert(const char* input, char* output, size_t size)
{
    char from[1100];
    FILE* file = NULL;
    int32_t result = 0;
    size_t length = 0;
    strcpy(from, path(input));
    remove(path("float.ini"));
    result = tavoConvert(from, path("float.ini"));
    file = fopen(path("float.ini"), "r");
    if (file) {
        length = fread(output, 1, size - 1, file);
        fclose(file);
    }
    output[length] = '\0';
    return result;
}

static unsigned vectorState(void)
{
#if defined(__SSE2__)
    return _mm_getcsr();
#else
    return 0;
#endif
}

static int traps(void)
{
#if defined(__GLIBC__)
    return fegetexcept();
#else
    return 0;
#endif
}

static void convertBoth(const char* environment)
{
    char output[4000];
    const int rounding = fegetround();
    const int raised = fetestexcept(FE_ALL_EXCEPT);
    const int trapped = traps();
    const unsigned vectors = vectorState();
    check(convert("float-good.a2l", output, sizeof output) == TAVO_OK, "result", environment);
    check(strcmp(output, expected) == 0, "output", environment);
    check(convert("float-bad.a2l", output, sizeof output) == TAVO_NOT_READ, "failure", environment);
    check(fegetround() == rounding, "the rounding was changed", environment);
    check(fetestexcept(FE_ALL_EXCEPT) == raised, "flags were changed", environment);
    check(traps() == trapped, "traps were changed", environment);
    check(vectorState() == vectors, "the state of SSE was changed", environment);
    fesetenv(FE_DFL_ENV);
}

static int writeFile(const char* name, const char* text)
{
    FILE* file = fopen(path(name), "w");
    return file && fputs(text, file) >= 0 && fclose(file) == 0;
}

int main(int argc, char** argv)
{
    const int roundings[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
    const char* const names[] = {"upward", "downward", "toward zero"};
    int i = 0;
    if (argc != 2)
        return 64;
    snprintf(folder, sizeof folder, "%s", argv[1]);
    if (!writeFile("float-good.a2l", good) ||
        !writeFile("float-bad.a2l", "ASAP2_VERSION 1 60 1e-310 0.3 1e300"))
        return 65;
    convert("float-good.a2l", expected, sizeof expected);
    check(strstr(expected, "Factor=1.000000\n") != NULL, "no tiny numbers", "default");
    check(strstr(expected, "Factor=411522630041.1000") != NULL, "no large numbers", "default");
    convertBoth("default");
    for (i = 0; i < 3; ++i) {
        fesetround(roundings[i]);
        convertBoth(names[i]);
    }
    feraiseexcept(FE_DIVBYZERO | FE_INEXACT);
    convertBoth("raised flags");
#if defined(__GLIBC__)
    feenableexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW | FE_UNDERFLOW);
    convertBoth("traps");
#endif
#if defined(__SSE2__)
    _mm_setcsr(_mm_getcsr() | 0x8040U); /* flush to zero, denormals are zero */
    convertBoth("flush to zero");
#endif
    return failures;
}
