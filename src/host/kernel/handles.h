// Kernel objects, and the handles by which a process refers to them.
#pragma once

#include <memory>

#include <morvl15/host.h>

enum class ObjectKind : uint8_t { kMutex, kMapping, kFile, kPrinter };

// What a handle stands for. Its end closes the object for this process.
class KernelObject {
  public:
    explicit KernelObject(ObjectKind kind) : kind_(kind) {}
    virtual ~KernelObject() = default;
    KernelObject(const KernelObject&) = delete;
    KernelObject& operator=(const KernelObject&) = delete;

    ObjectKind Kind() const { return kind_; }

  private:
    const ObjectKind kind_;
};

// Hands out a handle for an object. Null, with the last error set, when there are too many.
HANDLE HostOpenHandle(std::unique_ptr<KernelObject> object);

// The object of a handle. Null, with the last error set, when the handle is none or stands for another kind. The
// object lives until its handle is closed.
KernelObject* HostFindObject(HANDLE handle, ObjectKind kind);

template <class Object>
Object* HostFindObject(HANDLE handle) {
    return static_cast<Object*>(HostFindObject(handle, Object::kObjectKind));
}
