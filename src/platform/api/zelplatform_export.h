#pragma once

#include <QtGlobal>

/// Marks what libzelplatform offers to the box. Everything else in it stays hidden.
#if defined(ZELPLATFORM_LIBRARY)
#define ZELPLATFORM_EXPORT Q_DECL_EXPORT
#else
#define ZELPLATFORM_EXPORT Q_DECL_IMPORT
#endif
