#pragma once

// Not for moc, which would read all of Qt again for each test.
#ifndef Q_MOC_RUN
#include <QtTest/QtTest>
#endif

/// Timeout in milliseconds for events that a test waits for: much longer than they ever take, so
/// that no test fails on a busy computer.
inline constexpr int EventTimeout = 60000;

// Qt Test's own five seconds are too short on a busy computer.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#undef QTRY_COMPARE_LT
#undef QTRY_COMPARE_LE
#undef QTRY_COMPARE_GT
#undef QTRY_COMPARE_GE
#undef QTRY_COMPARE_NE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, EventTimeout)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT(condition, message, EventTimeout)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, EventTimeout)
#define QTRY_COMPARE_LT(left, right) QTRY_COMPARE_LT_WITH_TIMEOUT(left, right, EventTimeout)
#define QTRY_COMPARE_LE(left, right) QTRY_COMPARE_LE_WITH_TIMEOUT(left, right, EventTimeout)
#define QTRY_COMPARE_GT(left, right) QTRY_COMPARE_GT_WITH_TIMEOUT(left, right, EventTimeout)
#define QTRY_COMPARE_GE(left, right) QTRY_COMPARE_GE_WITH_TIMEOUT(left, right, EventTimeout)
#define QTRY_COMPARE_NE(left, right) QTRY_COMPARE_NE_WITH_TIMEOUT(left, right, EventTimeout)
