0[particle.0]
lifetime = "180.0,180.0"
; the end