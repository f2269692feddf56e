1[Library Effect]
Lifetime=5
Version=2.00

[Emitter.0]
Lifetime=0.00, 0.00

[Particle.0]
Lifetime=1.50,1.50
Type=19
