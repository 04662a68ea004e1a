#pragma once

#include <cstddef>
#include <utility>

namespace qv {

/// Intrusive reference-counting pointer over `qvObject`: adds a reference on copy, releases it on
/// destruction; the object deletes itself at zero. Has the size and layout of a plain pointer.
template <class T>
class qvPointer {
 public:
  constexpr qvPointer() noexcept = default;
  constexpr qvPointer(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor): null is a pointer
  qvPointer(T* object) : m_object(object) { retain(); }  // NOLINT(google-explicit-constructor)
  qvPointer(qvPointer const& other) : m_object(other.m_object) { retain(); }
  qvPointer(qvPointer&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
  template <class U>
  qvPointer(qvPointer<U> const& other) : m_object(other.get()) {  // NOLINT(google-explicit-constructor)
    retain();
  }
  ~qvPointer() { release(); }

  /// The new object is retained before the old one is released, so self-assignment is safe.
  qvPointer& operator=(qvPointer const& other) {  // NOLINT(bugprone-unhandled-self-assignment): copy and swap
    qvPointer(other).swap(*this);
    return *this;
  }
  qvPointer& operator=(qvPointer&& other) noexcept {
    qvPointer(std::move(other)).swap(*this);
    return *this;
  }

  T* get() const noexcept { return m_object; }
  T* operator->() const noexcept { return m_object; }
  T& operator*() const noexcept { return *m_object; }
  // NOLINTNEXTLINE(google-explicit-constructor): reads as a pointer
  operator T*() const noexcept { return m_object; }

  void swap(qvPointer& other) noexcept { std::swap(m_object, other.m_object); }

 private:
  void retain() {
    if (m_object != nullptr) m_object->IncrementReferences();
  }
  void release() {
    if (m_object != nullptr) m_object->DecrementReferences();
  }

  T* m_object = nullptr;
};

}  // namespace qv
