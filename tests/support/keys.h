#pragma once

#include <QTest>

// Within a GoogleTest test these do nothing.
#undef QVERIFY
#undef QVERIFY2
#undef QCOMPARE
#undef QTRY_VERIFY
#undef QTRY_VERIFY_WITH_TIMEOUT
#undef QTRY_COMPARE
#undef QTRY_COMPARE_WITH_TIMEOUT
