// Marks the classes that the shared library shows to the host; everything else is hidden.
#pragma once

#define PRODUCT_TREE_EXPORT __attribute__((visibility("default")))
