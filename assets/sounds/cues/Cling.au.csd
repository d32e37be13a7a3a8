<CsoundSynthesizer>
; A fingertip on a glass.
<CsInstruments>
#include "studio.inc"
seed 31

; p4 Hz, p5 seconds that it rings, p6 level
instr Glass
  aGlass  = Partial(p4,        1,    p5,        6)
  aGlass += Partial(p4 * 2.32, 0.42, p5 * 0.62, 6)
  aGlass += Partial(p4 * 4.25, 0.12, p5 * 0.32, 6)
  aGlass += Partial(p4 * 0.5,  0.12, p5 * 0.5,  6)
  gaStage += p6 * aGlass * cosseg:a(0, 0.0015, 1)
endin

instr Fingertip
  gaStage += 0.35 * Hiss(2600, 1.2) * cosseg:a(0, 0.001, 1) * expon:a(1, 0.018, 0.001)
endin
</CsInstruments>
<CsScore>
;             start length  Hz      ring  level
i "Glass"     0     0.55    1480    0.9   1
i "Glass"     0.018 0.532   2217    0.4   0.25
i "Fingertip" 0     0.02
;                           echoes  size  fade
i "Room"      0     0.55    0.22    0.02  0.15
</CsScore>
</CsoundSynthesizer>
