// Numbered files of the I/O functions.
#pragma once

int init_io();
