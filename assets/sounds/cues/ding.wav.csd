<CsoundSynthesizer>
; A clear little bell.
<CsInstruments>
#include "studio.inc"
seed 11

; p4 Hz, p5 seconds that the prime rings
instr Bell
  aBell  = Partial(p4 * 0.5,   0.28, p5 * 1.3,  4)  ; hum
  aBell += Partial(p4,         1,    p5,        4)  ; prime
  aBell += Partial(p4 * 1.252, 0.38, p5 * 0.75, 4)  ; tierce: a major third, so the bell sounds glad
  aBell += Partial(p4 * 1.5,   0.22, p5 * 0.6,  4)  ; quint
  aBell += Partial(p4 * 2.003, 0.62, p5 * 0.55, 4)  ; nominal
  aBell += Partial(p4 * 2.515, 0.20, p5 * 0.4,  4)
  aBell += Partial(p4 * 3.02,  0.26, p5 * 0.33, 4)
  aBell += Partial(p4 * 4.11,  0.10, p5 * 0.2,  4)
  gaStage += aBell * cosseg:a(0, 0.002, 1)
endin

; The clapper touches.
instr Clapper
  gaStage += 0.5 * Hiss(3200, 1.5) * cosseg:a(0, 0.001, 1) * expon:a(1, 0.03, 0.001)
endin
</CsInstruments>
<CsScore>
;           start length  Hz      ring
i "Bell"    0     1.4     1174.7  1.5
i "Clapper" 0     0.03
;                         echoes  size  fade
i "Room"    0     1.4     0.25    0.035 0.3
</CsScore>
</CsoundSynthesizer>
