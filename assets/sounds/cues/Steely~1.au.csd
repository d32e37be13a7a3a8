<CsoundSynthesizer>
; A soft clank: the lid of a pan, set down on a cloth, touches once more.
<CsInstruments>
#include "studio.inc"
seed 41

; p4 Hz, p5 seconds that it rings, p6 level, p7 cents between the two modes of a partial: a lid is never quite round
instr Lid
  aLid  = Partial(p4,        1,    p5,        p7)
  aLid += Partial(p4 * 1.58, 0.8,  p5 * 0.85, p7)
  aLid += Partial(p4 * 2.24, 0.6,  p5 * 0.7,  p7)
  aLid += Partial(p4 * 2.92, 0.42, p5 * 0.55, p7)
  aLid += Partial(p4 * 3.46, 0.35, p5 * 0.5,  p7)
  aLid += Partial(p4 * 4.33, 0.24, p5 * 0.4,  p7)
  aLid += Partial(p4 * 5.39, 0.16, p5 * 0.3,  p7)
  aLid += Partial(p4 * 6.71, 0.09, p5 * 0.22, p7)
  gaStage += p6 * aLid * cosseg:a(0, 0.002, 1)
endin

; Metal on cloth. p4 Hz, p5 octaves, p6 level
instr Thud
  gaStage += p6 * Hiss(p4, p5) * cosseg:a(0, 0.0015, 1) * expon:a(1, p3, 0.001)
endin
</CsInstruments>
<CsScore>
;        start length  Hz      ring    level cents
i "Lid"  0     0.6     391     0.75    1     14
i "Lid"  0.085 0.515   434.5   0.55    0.5   18
;                      Hz      octaves level
i "Thud" 0     0.035   900     2       0.7
i "Thud" 0.085 0.025   1200    2       0.4
i "Thud" 0     0.09    190     1       0.8
;                      echoes  size    fade
i "Room" 0     0.6     0.30    0.028   0.15
</CsScore>
</CsoundSynthesizer>
