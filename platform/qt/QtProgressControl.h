#pragma once

#include "platform/qt/QtControl.h"

#include <QProgressBar>

/// A progress bar. Its widget counts in pixels, so it changes only when there is something to see.
class QtProgressControl : public QtControl<ProgressControl, QProgressBar> {
public:
    QtProgressControl(QWidget* parent, const QString& name);

    float Max() const override { return m_max; }
    void SetMax(float max) override;
    float Value() const override { return m_value; }
    void SetValue(float value) override;

private:
    class PixelBar;

    QtProgressControl(PixelBar* bar, const QString& name);

    float m_max = 100;
    float m_value = 0;

    void ShowValue();
    int FilledPixels() const;
};
