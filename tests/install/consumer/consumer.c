/* Converts one point through the installed flat interface. */
#include <stdio.h>

#include "gxcart.h"

int main(void) {
    GxMapProjectionHandle utm = NULL;
    int status = -99;
    double x = 0.0, y = 0.0;
    C_GXMP_CREATE("UTM-32", &utm, &status);
    if (!utm || status != GXCART_OK) {
        fprintf(stderr, "UTM-32 not created (status %d)\n", status);
        return 1;
    }
    C_GXMP_GEO2PROJ(utm, 9.5, 48.25, &x, &y);
    printf("%.2f %.2f\n", x, y);
    C_GXMP_DESTROY(&utm, &status);
    return utm == NULL && status == GXCART_OK ? 0 : 1;
}
