// Left empty: the C library lists here what it lacks on the system that it is built for.
