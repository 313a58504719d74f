/* A multiplication and an addition that the compiler is told to fuse. */
double one_step(double a, double b, double c);

double one_step(double a, double b, double c) { return a * b + c; }
