// The bulk sections done the plain way, as their second derivation: every field read by Card, every row by print.
#pragma once

// Each writes what the section of its name writes.
void plain_set_section();
void plain_geometry_section();
