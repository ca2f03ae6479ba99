#pragma once

#include "coReceiver.h"
#include "grExport.h"

#include <memory>
#include <vector>

class dgView;
class grCameraViewCache;
class gwResourceDB;

/// The camera caches of all views. A view that is deleted takes its cache with it.
class GR_EXPORT grCameraViewCacheMan : public coReceiver
{
public:
    /// Number of cameras kept per view unless the resources say otherwise.
    static constexpr int the_default_capacity = 50;

    /// Reads "camera_cache_size", a number of cameras from 1 on, from db, which may be null and is not kept.
    explicit grCameraViewCacheMan(const gwResourceDB* db);
    ~grCameraViewCacheMan() override;

    /// The cache of a view, made on first request; good until the view is deleted.
    grCameraViewCache& cache(dgView& view);
    int has_cache(const dgView* view) const;
    int count() const { return static_cast<int>(the_caches.size()); }

    /// The process-wide manager, or null.
    static grCameraViewCacheMan* instance();
    /// Makes the process-wide manager unless there is one.
    static void initialise(const gwResourceDB* db);
    static void delete_instance();

    UT_DECLARE_TYPE(grCameraViewCacheMan, coReceiver);

protected:
    grCameraViewCacheMan(const grCameraViewCacheMan&) = delete;
    grCameraViewCacheMan& operator=(const grCameraViewCacheMan&) = delete;

private:
    void view_to_be_deleted(void* sender, void* data);

    int the_capacity = the_default_capacity;
    std::vector<std::unique_ptr<grCameraViewCache>> the_caches;
};
