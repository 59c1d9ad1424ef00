// Makes the toolkit believe that a screen reader is running.
#pragma once

// The toolkit sends its events for screen readers only while one is running, and offers no public
// switch for that. Its base class has one. The declarations here are the parts of two classes that
// a call needs.
class QPlatformAccessibility {
public:
    void setActive(bool active);
};
class QPlatformIntegration {
public:
    [[nodiscard]] QPlatformAccessibility* accessibility() const;
};

namespace clb {

/// Makes the toolkit believe that a screen reader listens, on the offscreen platform.
inline void ScreenReaderListens(bool listens)
{
    QPlatformIntegration().accessibility()->setActive(listens);
}

}  // namespace clb
