<CsoundSynthesizer>
; A donkey finds it funny: hee in, haw out, and a flutter of the lips. Its long head puts the formants close together.
<CsInstruments>
#include "studio.inc"
seed 5

; In through a narrow mouth, and much air with it.
instr Hee
  kHz = expseg:k(390, p3 / 3, 560, p3 / 3, 680, p3 / 3, 610) * (1 + randh:k(0.036, 500, random:i(0, 1)))
  ;                   gravel level
  aHee  = Formant(kHz, 0.2,  1,      400,  450,  505,  560)
  aHee += Formant(kHz, 0.2,  0.6,   1450, 1465, 1485, 1500)
  aHee += Formant(kHz, 0.2,  0.5,   2100, 2115, 2135, 2150)
  aHee += Formant(kHz, 0.2,  0.2,   2800, 2800, 2800, 2800)
  aHee += Formant(kHz, 0.2,  0.08,  3500, 3500, 3500, 3500)
  aHee += Formant(kHz, 0.2,  0.025, 4300, 4300, 4300, 4300)
  aHee += 0.35 * Hiss(expon:k(1500, p3, 2400), 1.2)
  gaStage += p4 * aHee * cosseg:a(0, 0.05, 1, p3 - 0.1, 1, 0.05, 0)
endin

; Out again with the mouth wide open, and all the gravel of a long throat.
instr Haw
  kHz = expseg:k(330, p3 / 3, 345, p3 / 3, 300, p3 / 3, 205) * (1 + randh:k(0.07, 300, random:i(0, 1)))
  ;                   gravel level
  aHaw  = Formant(kHz, 0.5,  1,      520,  780,  720,  480)
  aHaw += Formant(kHz, 0.5,  0.9,    950, 1120, 1060,  860)
  aHaw += Formant(kHz, 0.5,  0.4,   1600, 1700, 1650, 1500)
  aHaw += Formant(kHz, 0.5,  0.15,  2250, 2300, 2250, 2200)
  aHaw += Formant(kHz, 0.5,  0.08,  2950, 2950, 2900, 2900)
  aHaw += Formant(kHz, 0.5,  0.02,  3700, 3700, 3700, 3700)
  gaStage += p4 * aHaw * cosseg:a(0, 0.03, 0.75, p3 / 2 - 0.03, 1, p3 / 2 - 0.12, 0.9, 0.12, 0)
endin

; Air through slack lips, which flap 27 times a second.
instr Lips
  aFlap = 0.55 - 0.45 * oscili:a(1, 27, -1, 0.25)
  gaStage += p4 * aFlap * Hiss(expon:k(520, p3, 360), 1.8) * cosseg:a(0, 0.02, 1, p3 - 0.14, 1, 0.12, 0)
endin
</CsInstruments>
<CsScore>
;        start length level
i "Hee"  0     0.42   0.55
i "Haw"  0.44  0.62   1
i "Lips" 1.09  0.28   3.6
;                     echoes size  fade
i "Room" 0     1.4    0.30   0.04  0.05
</CsScore>
</CsoundSynthesizer>
