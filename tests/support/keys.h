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

namespace quillbox::test {

/// Waits until that is so: a moment, but longer on a busy machine than the library would wait.
template <typename Condition>
bool waitFor(Condition condition) {
  constexpr int milliseconds = 60'000;
  return QTest::qWaitFor(condition, milliseconds);
}

}  // namespace quillbox::test
