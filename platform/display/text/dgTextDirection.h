#pragma once

#include "dgGraphicalAttribute.h"
#include "giVector3.h"

/// The plane that text lies in: where its baseline runs and where its letters point up, in model coordinates. Along x
/// and y by default.
class DG_EXPORT dgTextDirection : public dgGraphicalAttribute
{
public:
    /// Lengths do not matter. Of up, only what is at right angles to the baseline counts. Vectors that span no plane
    /// leave the default.
    dgTextDirection(const giVector3& baseline, const giVector3& up);

    /// Unit vectors at right angles to each other.
    const giVector3& baseline() const { return the_baseline; }
    const giVector3& up() const { return the_up; }

    dgTextDirection* copy() const override;

    UT_DECLARE_TYPE(dgTextDirection, dgGraphicalElement);

protected:
    int equal_value(const dgGraphicalAttribute& other) const override;

private:
    giVector3 the_baseline{1, 0, 0};
    giVector3 the_up{0, 1, 0};
};
