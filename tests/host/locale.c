/*
 * A host whose locale has decimal commas. It fails if the locale isn't to be had, so that the test
 * can't pass without one.
 *
 * usage: locale LOCALE DESCRIPTION OUTPUT
 */

#include <tavo/tavo.h>

#include <locale.h>
#include <stdio.h>
#include <string.h>

int main(int argc, char** argv)
{
    char half[10];
    int32_t result = 0;

    if (argc != 4)
        return 64;
    if (!setlocale(LC_ALL, argv[1])) {
        fprintf(stderr, "there is no locale %s\n", argv[1]);
        return 65;
    }
    snprintf(half, sizeof half, "%.1f", 0.5);
    if (strcmp(half, "0,5") != 0) {
        fprintf(stderr, "the locale %s prints %s\n", argv[1], half);
        return 66;
    }
    result = tavoConvert(argv[2], argv[3]);
    snprintf(half, sizeof half, "%.1f", 0.5);
    if (strcmp(half, "0,5") != 0) {
        fprintf(stderr, "the library has changed the locale\n");
        return 67;
    }
    return -result;
}
